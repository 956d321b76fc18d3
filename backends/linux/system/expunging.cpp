// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/expunging.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <utility>

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

/// Where a folder lies that nobody is to take out any more.
struct Aside {
    FileDescriptor folder;
    std::string name;
};

bool HasNoRoom(int error) {
    return error == ENOSPC || error == EDQUOT;
}

/// Moves it into "expunged", which is made where it is missing. If it can't be moved, `full` tells
/// whether that is for want of room.
std::optional<Aside> MoveIntoExpunged(int trash, Place thing, bool& full) {
    constexpr mode_t kOwn = 0700;
    full = ::mkdirat(trash, "expunged", kOwn) != 0 && HasNoRoom(errno);
    FileDescriptor expunged(
        ::openat(trash, "expunged", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!expunged.open()) return std::nullopt;
    for (int number = 1;; ++number) {
        std::string fresh = std::to_string(::getpid()) + "-" + std::to_string(number);
        if (MoveFolder(thing, {.folder = expunged.number(), .name = fresh}))
            return Aside{std::move(expunged), std::move(fresh)};
        if (errno == EEXIST) continue;
        full = HasNoRoom(errno);
        return std::nullopt;
    }
}

/// Makes it "expunged" itself, which takes no more room than it has. If this is cut off, what is
/// left is where leftovers are looked for.
std::optional<Aside> MakeExpunged(int trash, Place thing) {
    // One that is empty may have been made already, and have had no room for a name.
    ::unlinkat(trash, "expunged", AT_REMOVEDIR);
    FileDescriptor above(::openat(trash, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::string name = "expunged";
    if (!above.open() || !MoveFolder(thing, {.folder = trash, .name = name})) return std::nullopt;
    return Aside{std::move(above), std::move(name)};
}

/// None if it could not be moved.
std::optional<Aside> MoveAside(int trash, Place thing) {
    bool full = false;
    auto aside = MoveIntoExpunged(trash, thing, full);
    return aside || !full ? std::move(aside) : MakeExpunged(trash, thing);
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
    const auto aside = MoveAside(trash, {.folder = files, .name = thing});
    if (!aside) return false;
    if (RemoveTree(aside->folder.number(), aside->name, watcher)) return true;
    static_cast<void>(MoveFolder({.folder = aside->folder.number(), .name = aside->name},
                                 {.folder = files, .name = thing}));
    return false;
}

}  // namespace corvane::linux_desktop
