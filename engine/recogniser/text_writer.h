// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace corvane::engine {

/// A phrase of dictated text as it is read: its signs at its words, capitals where they belong.
struct WrittenPhrase {
    std::vector<std::string> words;  ///< to be parted by blanks
    // Indexes of the spoken words that it is made of.
    std::size_t first = 0;
    std::size_t last = 0;
};

/// Writes what is dictated, utterance by utterance. A sentence may go on in the next one.
///
/// A break of the line is a phrase of its own, "\r", and a paragraph's two of them, so that what is
/// said in one breath around it comes as several. Whoever takes the phrases parts them by blanks,
/// so that a sign that is said alone stands alone.
class TextWriter {
public:
    /// spoken: words of the dictionary, and tokens of marks. What edits the text when it is said
    /// alone is written as it is.
    [[nodiscard]] std::vector<WrittenPhrase> Write(std::span<const std::string> spoken);

    /// From now on nothing has been written.
    void StartAnew() { *this = TextWriter(); }

private:
    [[nodiscard]] std::string Spelled(const std::string& word) const;
    void Edit(const std::string& phrase);

    bool capital_ = true;         ///< the next word begins a sentence
    bool capital_before_ = true;  ///< it would if the last phrase had not been said
};

}  // namespace corvane::engine
