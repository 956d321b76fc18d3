// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/phones.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

namespace corvane::engine {
namespace {

constexpr std::size_t kMostPhones = 100;  // what the synthesiser has room for in one word

// First the vowels, which bear the stress.
constexpr std::array kVowels =
    std::to_array<std::pair<std::string_view, std::string_view>>({{"aa", "A:"},
                                                                  {"ae", "a"},
                                                                  {"ah", "V"},
                                                                  {"ao", "O:"},
                                                                  {"aw", "aU"},
                                                                  {"ax", "@"},
                                                                  {"ay", "aI"},
                                                                  {"eh", "E"},
                                                                  {"er", "3:"},
                                                                  {"ey", "eI"},
                                                                  {"ih", "I"},
                                                                  {"iy", "i:"},
                                                                  {"ow", "oU"},
                                                                  {"oy", "OI"},
                                                                  {"uh", "U"},
                                                                  {"uw", "u:"}});
constexpr std::array kConsonants = std::to_array<std::pair<std::string_view, std::string_view>>(
    {{"b", "b"},  {"ch", "tS"}, {"d", "d"}, {"dh", "D"}, {"f", "f"},  {"g", "g"},
     {"h", "h"},  {"jh", "dZ"}, {"k", "k"}, {"l", "l"},  {"m", "m"},  {"n", "n"},
     {"ng", "N"}, {"p", "p"},   {"r", "r"}, {"s", "s"},  {"sh", "S"}, {"t", "t"},
     {"th", "T"}, {"v", "v"},   {"w", "w"}, {"y", "j"},  {"z", "z"},  {"zh", "Z"}});

template <typename Table>
std::string_view Find(const Table& table, std::string_view phone) {
    const auto found = std::ranges::find(table, phone, [](const auto& row) { return row.first; });
    return found == table.end() ? std::string_view() : found->second;
}

/// Whether it is a vowel that, with another one in the word, seldom bears the stress.
bool IsWeak(std::string_view vowel, bool last) {
    return vowel == "ah" || vowel == "er" || (vowel == "iy" && last);
}

/// The words of a text, in small letters.
std::vector<std::string> Parted(std::string_view text) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
            if (!parts.back().empty()) parts.emplace_back();
        } else {
            parts.back() += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
    }
    return parts;
}

}  // namespace

std::string PhonemesOf(std::string_view pronunciation) {
    std::string phonemes;
    std::size_t vowel = std::string::npos;  // where the last one stands, while it bears no stress
    std::size_t count = 0;
    for (const std::string& phone : Parted(pronunciation)) {
        if ((phone == "1" || phone == "2") && vowel != std::string::npos) {
            phonemes.insert(vowel, 1, phone == "1" ? '\'' : ',');
            vowel = std::string::npos;
            continue;
        }
        if (phone == "&" && count > 0) {
            phonemes += ' ';
            vowel = std::string::npos;
            continue;
        }
        const std::string_view sounding = Find(kVowels, phone);
        const std::string_view sound = sounding.empty() ? Find(kConsonants, phone) : sounding;
        if (sound.empty()) continue;
        // Without a bar, two short ones side by side are read as one long one.
        if (count > 0 && !phonemes.ends_with(' ')) phonemes += '|';
        if (!sounding.empty()) vowel = phonemes.size();
        phonemes += sound;
        if (++count > kMostPhones) return {};
    }
    return phonemes;
}

std::string PronunciationOf(std::string_view phones) {
    const std::vector<std::string> parts = Parted(phones);
    const auto is_vowel = [](const std::string& phone) { return !Find(kVowels, phone).empty(); };
    const auto first = std::ranges::find_if(parts, is_vowel);
    const auto full = std::ranges::find_if(parts, [&](const std::string& phone) {
        // What is parted ends in an empty rest where blanks stand behind the last phone.
        const bool last = &phone == &parts.back() || std::next(&phone)->empty();
        return is_vowel(phone) && !IsWeak(phone, last);
    });
    const auto stressed = full == parts.end() ? first : full;
    std::string pronunciation;
    for (auto phone = parts.begin(); phone != parts.end(); ++phone) {
        if (phone->empty()) continue;
        if (!pronunciation.empty()) pronunciation += ' ';
        if (phone == stressed) {
            pronunciation += *phone + " 1";
        } else if (*phone == "ah") {
            pronunciation += "ax";
        } else {
            pronunciation += *phone == "hh" ? "h" : *phone;
        }
    }
    return pronunciation;
}

}  // namespace corvane::engine
