// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "linux/system/folder_removal.h"

namespace corvane::linux_desktop {

/// Removes a thing from "files" of an open trash folder, and returns whether this has made an end
/// of it: false where it stays, and where somebody else has taken it out.
///
/// A folder with content is first moved to "expunged" of that trash, under a fresh name. So whoever
/// takes it out meanwhile has either all of it or nothing, and nobody moves a part of it away that
/// is then removed elsewhere. A folder that can't be moved stays as it is. What is left of one that
/// can't be removed entirely, or at whose removal it was stopped, comes back under its name, unless
/// that has been taken. Where the disk has no room for that the folder becomes "expunged" itself: a
/// trash that can't be emptied would keep the disk full.
bool Expunge(int trash, int files, const std::string& thing, RemovalWatcher& watcher);

}  // namespace corvane::linux_desktop
