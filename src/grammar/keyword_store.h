// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "grammar/data_paths.h"
#include "platform/automation.h"
#include "runtime/numbers.h"

namespace corvane {

/// A list of texts with lower bound 0 that has room for one more: with n lines, n at least 1, the
/// upper bound is n and the last element is empty; with none it is 1 and both elements are empty.
/// Whoever walks it goes to the upper bound less 1, which is one pass over an empty text for an
/// empty list.
class KeywordList {
public:
    KeywordList() = default;
    explicit KeywordList(std::vector<std::string> lines);

    [[nodiscard]] Long UpperBound() const;
    /// Raises kSubscriptOutOfRange outside the bounds.
    [[nodiscard]] const std::string& operator()(Long index) const;

private:
    std::vector<std::string> elements_{std::string(), std::string()};
};

/// One row of the list in which the user keeps the keywords: its text, and the texts of its further
/// columns, of which there is one, the path.
struct KeywordRow {
    std::string text;
    std::vector<std::string> sub_items;
};

/// What the user has taught the system: spoken keywords and the programs that they start. Name and
/// path of an entry are tied by their index alone.
class KeywordStore {
public:
    KeywordStore(IFileSystemObject& files, const DataPaths& paths);

    KeywordList KeywordNames;
    KeywordList KeywordPaths;

    /// Read keywords.txt. A line that holds ".exe" anywhere, in just that case, is a path, and
    /// every other line, a blank one included, a keyword. A missing file raises.
    [[nodiscard]] KeywordList LoadKeywordNames() const;
    [[nodiscard]] KeywordList LoadKeywordPaths() const;

    /// Takes both lists anew, the names first. When the paths can't be read the names are new
    /// already.
    void Reload();

    // The writers truncate the file in place: a failure in the middle leaves a shorter store.

    /// Makes the file, or empties it. The lists stay as they are.
    void CreateKeywordsTXT();

    /// Writes the rows anew and reloads. A row whose path is empty leaves its keyword alone in the
    /// file.
    void SaveKeywordsTXT(const std::vector<KeywordRow>& rows);

    /// Takes every line out that equals the keyword or the path, wherever it stands and whoever
    /// else needs it, and every blank line with them; then reloads.
    void RemoveKeywordLines(const std::string& keyword, const std::string& path);

private:
    IFileSystemObject& files_;
    const DataPaths& paths_;
};

}  // namespace corvane
