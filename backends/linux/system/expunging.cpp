// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/expunging.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>

#include "linux/files/file_descriptor.h"

namespace corvane::linux_desktop {
namespace {

/// A name in an open folder.
struct Place {
    int folder;
    const std::string& name;
};

/// Moves something to where nothing is; else `errno` is EEXIST.
bool Move(Place from, Place to) {
    if (::renameat2(from.folder, from.name.c_str(), to.folder, to.name.c_str(), RENAME_NOREPLACE) ==
        0)
        return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // This file system replaces or nothing.
    struct stat status {};
    if (::fstatat(to.folder, to.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return false;
    }
    return errno == ENOENT &&
           ::renameat(from.folder, from.name.c_str(), to.folder, to.name.c_str()) == 0;
}

/// As Move, of a folder, which can go elsewhere only if it can be written.
bool MoveFolder(Place from, Place to) {
    if (Move(from, to)) return true;
    if (errno != EACCES) return false;
    const FileDescriptor folder(
        ::openat(from.folder, from.name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return folder.open() && AllowOneself(folder.number()) && Move(from, to);
}

/// The name under which a folder now lies in `expunged`; none if it could not be moved there.
std::optional<std::string> MoveAside(Place thing, int expunged) {
    for (int number = 1;; ++number) {
        const std::string fresh = std::to_string(::getpid()) + "-" + std::to_string(number);
        if (MoveFolder(thing, {.folder = expunged, .name = fresh})) return fresh;
        if (errno != EEXIST) return std::nullopt;
    }
}

/// Makes it where it is missing; `full` tells whether just the room for it was missing too.
FileDescriptor OpenExpunged(int trash, bool& full) {
    constexpr mode_t kOwn = 0700;
    full = ::mkdirat(trash, "expunged", kOwn) != 0 && (errno == ENOSPC || errno == EDQUOT);
    return FileDescriptor(
        ::openat(trash, "expunged", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

}  // namespace

bool Expunge(int trash, int files, const std::string& thing, RemovalWatcher& watcher) {
    switch (RemoveOne(files, thing)) {
        case Outcome::Gone:
            static_cast<void>(watcher.Removed());
            return true;
        case Outcome::WasNotThere:
        case Outcome::Stays:
            return false;
        case Outcome::HasContent:
            break;
    }
    bool full = false;
    const FileDescriptor expunged = OpenExpunged(trash, full);
    // To make room is what it is emptied for, so it goes where it lies then.
    if (!expunged.open()) return full && RemoveTree(files, thing, watcher);
    const auto aside = MoveAside({.folder = files, .name = thing}, expunged.number());
    if (!aside) return false;
    if (RemoveTree(expunged.number(), *aside, watcher)) return true;
    static_cast<void>(MoveFolder({.folder = expunged.number(), .name = *aside},
                                 {.folder = files, .name = thing}));
    return false;
}

}  // namespace corvane::linux_desktop
