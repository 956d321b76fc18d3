// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace corvane::engine {

/// A pronunciation dictionary on disk: lines of a word and its phones, "word(2)" for a second way
/// to say it. Only what is asked for is kept, since a grammar needs a hundred of its 135,000 words.
class Dictionary {
public:
    /// Raises kAutomationError when the file can't be read.
    explicit Dictionary(std::string path);

    /// Pronunciations of those of `words` that it holds, in one pass over the file.
    [[nodiscard]] std::map<std::string, std::vector<std::string>> Find(
        const std::set<std::string>& words) const;

private:
    std::string path_;
};

}  // namespace corvane::engine
