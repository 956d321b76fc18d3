// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "linux/files/file_descriptor.h"

namespace corvane::linux_desktop {

/// Where the trash of a person may lie.
struct TrashPlaces {
    std::string home;               ///< the folder of what came from the person's own file system
    std::vector<std::string> tops;  ///< mount points of volumes, each with a trash of its own
    uid_t person = 0;
};

/// How far the emptying is; read and cancelled from another thread.
struct Emptying {
    std::atomic<bool> cancelled = false;
    std::atomic<std::int64_t> things = 0;       ///< as a person counts them: a folder is one
    std::atomic<std::int64_t> things_done = 0;  ///< gone, or left because they can't go
    std::atomic<std::int64_t> files_removed = 0;
};

/// The trash folders that are there, each once. On a volume they are ".Trash/<person>", where
/// ".Trash" is a folder with the sticky bit, and ".Trash-<person>". A link, or a folder of somebody
/// else's, is no trash.
[[nodiscard]] std::vector<FileDescriptor> OpenTrashes(const TrashPlaces& places);

/// Empties trash folders for good. A thing goes before what is noted about it, so that a trash is
/// in order wherever this is cut off; what can't be removed stays, with its note. Nothing outside
/// of the folders is touched.
void EmptyTrashes(const std::vector<FileDescriptor>& trashes, Emptying& emptying);

/// Whether nothing is left in any of them.
[[nodiscard]] bool AreEmpty(const std::vector<FileDescriptor>& trashes);

}  // namespace corvane::linux_desktop
