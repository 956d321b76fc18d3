// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/folder_removal.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <utility>

#include "linux/files/file_descriptor.h"

namespace corvane::linux_desktop {
namespace {

constexpr int kFolder = O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

/// Which folder an open one is, whatever it is called.
struct Identity {
    dev_t device = 0;
    ino_t number = 0;
    friend bool operator==(const Identity&, const Identity&) = default;
};

Identity IdentityOf(int folder) {
    struct stat status {};
    if (::fstat(folder, &status) != 0) return {};
    return {.device = status.st_dev, .number = status.st_ino};
}

/// Opens a folder so that what is in it can be removed; none if that can't be had.
FileDescriptor Enter(int parent, const std::string& name) {
    const FileDescriptor path(::openat(parent, name.c_str(), O_PATH | kFolder));
    struct stat status {};
    if (!path.open() || ::fstat(path.number(), &status) != 0) return {};
    if (status.st_dev != IdentityOf(parent).device) return {};
    static_cast<void>(AllowOneself(path.number()));
    FileDescriptor folder(::openat(path.number(), ".", O_RDONLY | kFolder));
    // Without the right to write nothing in it can go, without the other no way leads back.
    if (folder.open() && ::faccessat(folder.number(), ".", W_OK | X_OK, AT_EACCESS) != 0) return {};
    return folder;
}

/// A folder on the way down, and what is left to do there.
struct Level {
    std::string name;
    Identity identity;
    std::vector<std::string> left;
};

/// Only the folder that is worked on is open, so that depth costs nothing but the names.
class Descent {
public:
    Descent(int top, RemovalWatcher& watcher) : top_(top), watcher_(watcher) {}

    /// False when it has been stopped, or has lost its way.
    bool Run(const std::string& name) {
        if (!Take(top_, name)) return false;
        while (!levels_.empty()) {
            std::vector<std::string>& left = levels_.back().left;
            if (left.empty()) {
                if (!LeaveFolder()) return false;
                continue;
            }
            const std::string next = std::move(left.back());
            left.pop_back();
            if (!Take(here_.number(), next)) return false;
        }
        return true;
    }

private:
    bool Take(int folder, const std::string& name) {
        switch (RemoveOne(folder, name)) {
            case Outcome::Gone:
                return watcher_.Removed();
            case Outcome::WasNotThere:
            case Outcome::Stays:
                return true;
            case Outcome::HasContent:
                break;
        }
        FileDescriptor inside = Enter(folder, name);
        if (!inside.open()) return true;
        levels_.push_back({name, IdentityOf(inside.number()), NamesIn(inside.number())});
        here_ = std::move(inside);
        return true;
    }

    bool LeaveFolder() {
        const std::string name = std::move(levels_.back().name);
        levels_.pop_back();
        if (levels_.empty()) {
            here_ = FileDescriptor();
            return RemoveOne(top_, name) != Outcome::Gone || watcher_.Removed();
        }
        FileDescriptor above(::openat(here_.number(), "..", O_RDONLY | kFolder));
        // A folder that somebody has moved leads elsewhere.
        if (!above.open() || IdentityOf(above.number()) != levels_.back().identity) return false;
        here_ = std::move(above);
        return RemoveOne(here_.number(), name) != Outcome::Gone || watcher_.Removed();
    }

    int top_;
    RemovalWatcher& watcher_;
    FileDescriptor here_;
    std::vector<Level> levels_;
};

}  // namespace

std::vector<std::string> NamesIn(int folder) {
    std::vector<std::string> names;
    FileDescriptor own(::openat(folder, ".", O_RDONLY | kFolder));  // with a place of its own
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::fdopendir(own.number()), &::closedir);
    if (!entries) return names;
    static_cast<void>(own.Release());
    while (const dirent* entry = ::readdir(entries.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    return names;
}

bool HasEntry(int folder, const std::string& name) {
    struct stat status {};
    return ::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 || errno != ENOENT;
}

Outcome RemoveOne(int folder, const std::string& name) {
    if (::unlinkat(folder, name.c_str(), 0) == 0) return Outcome::Gone;
    if (errno == ENOENT) return Outcome::WasNotThere;
    if (errno != EISDIR) return Outcome::Stays;
    // A folder on which another file system is mounted says that it is busy, and is left alone.
    if (::unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0) return Outcome::Gone;
    return errno == ENOTEMPTY || errno == EEXIST ? Outcome::HasContent : Outcome::Stays;
}

bool AllowOneself(int folder) {
    struct stat status {};
    if (::fstat(folder, &status) != 0 || status.st_uid != ::geteuid()) return false;
    if ((status.st_mode & S_IRWXU) == S_IRWXU) return true;
    // By its number, since the name may mean something else by now.
    const std::string itself = "/proc/self/fd/" + std::to_string(folder);
    return ::chmod(itself.c_str(), (status.st_mode & 07777) | S_IRWXU) == 0;
}

bool RemoveTree(int folder, const std::string& name, RemovalWatcher& watcher) {
    Descent(folder, watcher).Run(name);
    return !HasEntry(folder, name);
}

}  // namespace corvane::linux_desktop
