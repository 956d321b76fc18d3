// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lexicon/user_words.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "engine/fresh_file.h"
#include "engine/grammar/grammar.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

constexpr std::array<std::string_view, 39> kPhones{
    "AA", "AE", "AH", "AO", "AW", "AY", "B",  "CH", "D", "DH", "EH", "ER", "EY",
    "F",  "G",  "HH", "IH", "IY", "JH", "K",  "L",  "M", "N",  "NG", "OW", "OY",
    "P",  "R",  "S",  "SH", "T",  "TH", "UH", "UW", "V", "W",  "Y",  "Z",  "ZH"};

// A word longer than that is not said in one breath.
constexpr std::size_t kMostPhones = 60;

// What kMostWords may take many times over.
constexpr std::uintmax_t kLargestFile = 10'000'000;

/// Adds a way that is new; false when it says nothing.
bool AddLine(const std::string& line, WordsAndWays& words) {
    std::istringstream parts(line);
    std::string word;
    std::string phones;
    parts >> word;
    for (std::string phone; parts >> phone;) phones += (phones.empty() ? "" : " ") + phone;
    if (!IsWordToLearn(word) || !ArePhones(phones)) return false;
    if (!words.contains(word) && words.size() == UserWords::kMostWords) return false;
    WaysToSay& ways = words[word];
    if (ways.size() == UserWords::kMostWays) return false;
    if (std::ranges::find(ways, phones) == ways.end()) ways.push_back(phones);
    return true;
}

}  // namespace

bool IsWordToLearn(const std::string& word) {
    return !word.empty() && word.size() <= kLongestWord && word.front() != '#' &&
           std::ranges::none_of(word, [](char c) {
               return (c >= '\0' && c <= ' ') || c == '\x7f' ||
                      std::string_view("()<>[]+@").find(c) != std::string_view::npos;
           });
}

std::span<const std::string_view> Phones() {
    return kPhones;
}

bool ArePhones(const std::string& phones) {
    std::istringstream names(phones);
    std::size_t count = 0;
    for (std::string name; names >> name; ++count)
        if (count == kMostPhones || std::ranges::find(kPhones, name) == kPhones.end()) return false;
    return count > 0;
}

UserWords::UserWords(std::string folder, const std::function<void(const std::string&)>& complain)
    : folder_(std::move(folder)) {
    if (!folder_.empty()) Read(complain);
}

void UserWords::Read(const std::function<void(const std::string&)>& complain) {
    const auto say = [&](const std::string& line) {
        if (complain) complain(line);
    };
    std::error_code failure;
    const std::filesystem::file_status status = std::filesystem::status(File(), failure);
    if (status.type() == std::filesystem::file_type::not_found) return;
    if (!std::filesystem::is_regular_file(status) ||
        std::filesystem::file_size(File(), failure) > kLargestFile || failure)
        return say("The words in " + File() + " are ignored: it is no file of words.");
    std::ifstream file(File());
    std::size_t number = 0;
    std::size_t first_broken = 0;
    std::size_t broken = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.find_first_not_of(" \t\r") == std::string::npos || line.front() == '#') continue;
        if (AddLine(line, words_)) continue;
        if (broken++ == 0) first_broken = number;
    }
    if (!file.eof()) say("The words in " + File() + " can't all be read.");
    if (broken > 0)
        say(std::to_string(broken) + " of the lines in " + File() +
            " are ignored, the first of them line " + std::to_string(first_broken) +
            ": they are no word and phones.");
}

void UserWords::Add(const std::string& word, const WaysToSay& ways) {
    Add(WordsAndWays{{word, ways}});
}

void UserWords::Add(const WordsAndWays& more) {
    WordsAndWays words = words_;
    for (const auto& [word, ways] : more) {
        if (!IsWordToLearn(word)) throw RuntimeError(kAutomationError, "This is no word: " + word);
        if (ways.empty() || ways.size() > kMostWays || !std::ranges::all_of(ways, ArePhones))
            throw RuntimeError(kAutomationError, "There is no way to say " + word);
        words[word] = ways;
    }
    if (words.size() > kMostWords)
        throw RuntimeError(kAutomationError, "There is no room for so many words");
    Keep(words);
    words_ = std::move(words);
}

void UserWords::Remove(const std::string& word) {
    WordsAndWays words = words_;
    if (words.erase(word) == 0) return;
    Keep(words);
    words_ = std::move(words);
}

void UserWords::Keep(const WordsAndWays& words) const {
    if (folder_.empty()) return;
    std::string lines;
    for (const auto& [word, ways] : words)
        for (const std::string& phones : ways) lines += word + ' ' + phones + '\n';
    if (!FreshFile(File(), lines).TakePlace())
        throw RuntimeError(kAutomationError, "The words can't be kept in " + File());
}

}  // namespace corvane::engine
