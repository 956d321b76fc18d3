// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::engine {

/// Ways to say a word, each a line of the acoustic model's phones parted by blanks.
using WaysToSay = std::vector<std::string>;

/// By word, as it is to be written.
using WordsAndWays = std::map<std::string, WaysToSay>;

/// Whether a word can be written and searched for: no blanks, no signs that mean something to a
/// dictionary, at most kLongestWord bytes.
[[nodiscard]] bool IsWordToLearn(const std::string& word);

/// The phones of US English.
[[nodiscard]] std::span<const std::string_view> Phones();

/// Whether these are phones of US English, parted by blanks, as many as a word may have.
[[nodiscard]] bool ArePhones(const std::string& phones);

/// Words that the user has added, or says otherwise than the dictionary, kept in a file of a folder
/// of theirs: a line for each way to say one, the word and then its phones. For the loop's thread.
class UserWords {
public:
    static constexpr std::size_t kMostWords = 10'000;
    static constexpr std::size_t kMostWays = 6;  ///< of a word

    /// Reads what is kept; of lines that say nothing it complains, and leaves them out. folder:
    /// made when something is to be kept; empty if nothing is ever to be kept.
    UserWords(std::string folder, const std::function<void(const std::string&)>& complain);

    [[nodiscard]] const WordsAndWays& All() const { return words_; }

    /// Adds the word, in place of an earlier one of the same spelling. Raises kAutomationError, and
    /// nothing has changed, when it is no word, has no way or a wrong one to be said, or can't be
    /// kept.
    void Add(const std::string& word, const WaysToSay& ways);
    void Add(const WordsAndWays& more);

    /// To remove a word that is not there is no error. Raises kAutomationError when that can't be
    /// kept.
    void Remove(const std::string& word);

private:
    void Read(const std::function<void(const std::string&)>& complain);
    void Keep(const WordsAndWays& words) const;
    [[nodiscard]] std::string File() const { return folder_ + "/words.txt"; }

    std::string folder_;
    WordsAndWays words_;
};

}  // namespace corvane::engine
