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

/// Removes a file, a link or a folder with all that is in it, however deep, from an open folder,
/// and returns whether it is gone. Links are removed and never followed, other file systems are
/// not entered, and nobody who renames things meanwhile leads it out of the folder. A folder of the
/// person's own whose permissions forbid it is given them. What can't be removed stays, with the
/// folders it is in; the rest goes.
bool RemoveTree(int folder, const std::string& name, RemovalWatcher& watcher);

}  // namespace corvane::linux_desktop
