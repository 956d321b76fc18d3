// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane::linux_desktop {

/// Where the trash of a person may lie.
struct TrashPlaces {
    std::string home;  ///< the folder of what came from the person's own file system
    /// Mount points of volumes, each with a trash of its own; those behind a network come last.
    std::vector<std::string> tops;
    uid_t person = 0;
};

/// How far the emptying is; read and cancelled from another thread.
struct Emptying {
    std::atomic<bool> cancelled = false;
    std::atomic<std::int64_t> things = 0;       ///< as a person counts them: a folder is one
    std::atomic<std::int64_t> things_done = 0;  ///< gone, or left because they can't go
    std::atomic<std::int64_t> files_removed = 0;
};

/// Empties trash folders for good, place by place in the order given, and returns whether nothing
/// is left in any of them. A place is only looked at when those before it are done, so that a file
/// system that does not answer holds up none of them; `things` grows accordingly.
///
/// On a volume the trash folders are ".Trash/<person>", where ".Trash" is a folder with the sticky
/// bit, and ".Trash-<person>". A link, or a folder of somebody else's, is no trash. A thing goes
/// before what is noted about it, so that a trash is in order wherever this is cut off; what can't
/// be removed stays, with its note. What somebody takes out meanwhile they have whole, or not at
/// all. Nothing outside of the folders is touched.
bool EmptyTrashes(const TrashPlaces& places, Emptying& emptying);

}  // namespace corvane::linux_desktop
