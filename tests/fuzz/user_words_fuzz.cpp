// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as a file of the user's words, and as a text that words are learned from: what is kept
// can be written, said and searched for, and is read again as it was.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "engine/lexicon/personal_ngrams.h"
#include "engine/lexicon/user_words.h"
#include "require.h"

namespace {

using namespace corvane::engine;
using corvane::fuzz::Require;

/// A folder in memory, gone at the end of the process.
class Folder {
public:
    Folder() { Require(mkdtemp(name_.data()) != nullptr, "there is memory for files"); }
    ~Folder() { std::filesystem::remove_all(name_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    [[nodiscard]] const std::string& Name() const { return name_; }

private:
    std::string name_ = "/dev/shm/corvane-fuzz-XXXXXX";
};

void CheckWords(const WordsAndWays& words) {
    Require(words.size() <= UserWords::kMostWords, "words are bounded");
    for (const auto& [word, ways] : words) {
        Require(IsWordToLearn(word), "a word can be written and searched for");
        Require(!ways.empty() && ways.size() <= UserWords::kMostWays, "a word has some ways");
        Require(std::all_of(ways.begin(), ways.end(), ArePhones), "a way is made of phones");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    const std::string text(data, data + size);
    std::ofstream(folder.Name() + "/words.txt", std::ios::binary) << text;
    UserWords words(folder.Name(), [](const std::string& line) {
        Require(!line.empty() && line.back() == '.', "a complaint is a sentence");
    });
    CheckWords(words.All());
    words.Add("corvane", {"K AO R V EY N"});
    Require(UserWords(folder.Name(), {}).All() == words.All(), "what is kept is read as it was");

    const PersonalText personal{.words = words.All(), .sentences = SentencesOf(text)};
    for (const std::string& sentence : personal.sentences)
        Require(!sentence.empty() && sentence.front() != ' ' && sentence.back() != ' ',
                "a sentence has words");
    Require(NgramsOf(personal).ends_with("\\end\\\n"), "the n-grams are whole");
    return 0;
}
