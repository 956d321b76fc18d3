// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace corvane::linux_desktop {

/// Told of each file, link and folder that has been removed; false stops the removal.
class RemovalWatcher {
public:
    virtual ~RemovalWatcher() = default;
    virtual bool Removed() = 0;
};

/// The names in an open folder, without "." and ".."; none if it can't be read.
[[nodiscard]] std::vector<std::string> NamesIn(int folder);

/// Whether there is something of that name in an open folder. What can't be told counts as there.
[[nodiscard]] bool HasEntry(int folder, const std::string& name);

/// What came of removing one thing.
enum class Outcome {
    Gone,
    WasNotThere,
    Stays,
    HasContent,  ///< a folder that is not empty
};

/// Removes a file, a link or an empty folder from an open folder.
Outcome RemoveOne(int folder, const std::string& name);

/// Gives the person all rights to a folder of their own that they have opened by O_PATH at least.
/// False for somebody else's, and where that is refused.
bool AllowOneself(int folder);

/// Removes a file, a link or a folder with all that is in it, however deep, from an open folder,
/// and returns whether it is gone. Links are removed and never followed, and other file systems are
/// not entered. A folder that is moved while its content is being removed loses that content, since
/// it is known by what it is and not by where it lies; once a folder has been left, nobody who
/// renames things leads the removal anywhere else. What others may yet want to take away is
/// therefore to be put out of their reach first. A folder of the person's own whose permissions
/// forbid it is given them. What can't be removed stays, with the folders it is in; the rest goes.
bool RemoveTree(int folder, const std::string& name, RemovalWatcher& watcher);

}  // namespace corvane::linux_desktop
