// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "grammar/data_paths.h"
#include "platform/automation.h"

namespace corvane {

/// Writes keywords.xml, the grammar of everything that can be commanded, line by line as plain
/// text.
class CommandGrammar {
public:
    CommandGrammar(IFileSystemObject& files, const DataPaths& paths);

    /// Puts a file of the built-in commands alone in place of the present one. Without a present
    /// one nothing is written: the removal raises.
    void CreateKeywordsXML();

    // Both of these rewrite the whole file, truncated in place: a failure in the middle leaves a
    // part of it. Nothing is escaped: a keyword with markup in it makes a file that does not parse.

    /// Adds the rule that makes a keyword speakable, whether or not there is one of its name
    /// already, and drops blank lines. A missing file raises.
    void AppendKeywordRule(const std::string& keyword);

    /// Cuts the keyword's rule out: the last one of that name, compared with its case. When there
    /// is none the file loses its first line instead, and with that its grammar. Deliberate.
    void RemoveKeywordRule(const std::string& keyword);

private:
    [[nodiscard]] std::vector<std::string> ReadLines() const;

    IFileSystemObject& files_;
    const DataPaths& paths_;
};

}  // namespace corvane
