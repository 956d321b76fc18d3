// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/letter_to_sound.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <sstream>
#include <vector>

#include "engine/espeak_library.h"
#include "engine/grammar/grammar.h"

namespace corvane::engine {
namespace {

struct PhonemeSound {
    std::string_view phoneme;
    std::string_view phones;
};

// Names that eSpeak NG's en-us voice gives to the sounds. Its vowels before an r hold that r.
constexpr std::array kSounds = std::to_array<PhonemeSound>({
    {"p", "P"},     {"b", "B"},       {"t", "T"},       {"t2", "T"},    {"t#", "T"},
    {"d", "D"},     {"d2", "D"},      {"k", "K"},       {"g", "G"},     {"f", "F"},
    {"v", "V"},     {"T", "TH"},      {"D", "DH"},      {"s", "S"},     {"z", "Z"},
    {"S", "SH"},    {"Z", "ZH"},      {"h", "HH"},      {"tS", "CH"},   {"dZ", "JH"},
    {"m", "M"},     {"n", "N"},       {"N", "NG"},      {"l", "L"},     {"r", "R"},
    {"r-", "R"},    {"j", "Y"},       {"w", "W"},       {"x", "K"},     {"n-", "AH N"},
    {"l#", "L"},    {"?", ""},        {";", ""},        {"a", "AE"},    {"aa", "AE"},
    {"a#", "AH"},   {"A", "AA"},      {"A:", "AA"},     {"A@", "AA R"}, {"A~", "AA N"},
    {"0", "AA"},    {"O", "AO"},      {"O:", "AO"},     {"O2", "AO"},   {"O@", "AO R"},
    {"O~", "AO N"}, {"o", "OW"},      {"o@", "AO R"},   {"oU", "OW"},   {"OI", "OY"},
    {"E", "EH"},    {"E2", "EH"},     {"e", "EH"},      {"e@", "EH R"}, {"eI", "EY"},
    {"I", "IH"},    {"I2", "IH"},     {"I#", "IH"},     {"i", "IY"},    {"i:", "IY"},
    {"i::", "IY"},  {"i@", "IY AH"},  {"i@3", "IH R"},  {"V", "AH"},    {"@", "AH"},
    {"@2", "AH"},   {"@5", "AH"},     {"@-", "AH"},     {"@L", "AH L"}, {"3", "ER"},
    {"3:", "ER"},   {"U", "UH"},      {"U@", "UH R"},   {"u", "UW"},    {"u:", "UW"},
    {"aI", "AY"},   {"aI@", "AY AH"}, {"aI3", "AY ER"}, {"aU", "AW"},   {"aU@", "AW ER"},
});

constexpr std::string_view kStressMarks = "',%=|";

bool AppendSounds(std::string_view phoneme, std::vector<std::string>& phones) {
    const auto sound = std::ranges::find(kSounds, phoneme, &PhonemeSound::phoneme);
    if (sound == kSounds.end()) return false;
    std::istringstream names{std::string(sound->phones)};
    for (std::string name; names >> name;) {
        // "vary": the vowel has said the r that follows it.
        const bool said =
            name == "R" && !phones.empty() && (phones.back() == "R" || phones.back() == "ER");
        if (!said) phones.push_back(name);
    }
    return true;
}

}  // namespace

std::string PhonesOfPhonemes(std::string_view phonemes) {
    std::string parted(phonemes);
    std::ranges::replace(parted, '_', ' ');
    std::istringstream names(parted);
    std::vector<std::string> phones;
    for (std::string name; names >> name;) {
        std::erase_if(name, [](char c) { return kStressMarks.find(c) != std::string_view::npos; });
        if (!name.empty() && !AppendSounds(name, phones)) return {};
    }
    std::string line;
    for (const std::string& phone : phones) line += (line.empty() ? "" : " ") + phone;
    return line;
}

std::string LetterToSound(const std::string& word) {
    if (word.size() > kLongestWord) return {};
    // A word of signs only would be read out by the signs' names.
    const bool has_letter = std::ranges::any_of(
        word, [](unsigned char c) { return std::isalnum(c) != 0 || c >= 0x80; });
    if (!has_letter) return {};

    const EspeakLibrary library;
    if (!library.Usable()) return {};
    constexpr int kPartedByUnderscore = '_' << 8;
    std::string phonemes;
    const void* rest = word.c_str();
    while (rest != nullptr) {
        const char* clause = espeak_TextToPhonemes(&rest, espeakCHARS_UTF8, kPartedByUnderscore);
        if (clause != nullptr) phonemes += std::string(" ") + clause;
    }
    return PhonesOfPhonemes(phonemes);
}

}  // namespace corvane::engine
