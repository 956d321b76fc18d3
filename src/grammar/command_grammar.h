// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

private:
    IFileSystemObject& files_;
    const DataPaths& paths_;
};

}  // namespace corvane
