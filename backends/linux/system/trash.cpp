// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/trash.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <string_view>
#include <utility>

#include "linux/system/folder_removal.h"

namespace corvane::linux_desktop {
namespace {

constexpr std::string_view kNoteEnding = ".trashinfo";

FileDescriptor OpenFolder(int parent, const std::string& name) {
    return FileDescriptor(
        ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

class TrashFinder {
public:
    explicit TrashFinder(uid_t person) : person_(person) {}

    void Add(FileDescriptor folder) {
        struct stat status {};
        if (!folder.open() || ::fstat(folder.number(), &status) != 0) return;
        if (status.st_uid != person_) return;
        // A volume that is mounted twice has one trash.
        if (!seen_.insert({status.st_dev, status.st_ino}).second) return;
        found_.push_back(std::move(folder));
    }

    void LookIn(const std::string& top) {
        const FileDescriptor volume(::open(top.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!volume.open()) return;
        const std::string person = std::to_string(person_);
        const FileDescriptor shared = OpenShared(volume.number());
        if (shared.open()) Add(OpenFolder(shared.number(), person));
        Add(OpenFolder(volume.number(), ".Trash-" + person));
    }

    std::vector<FileDescriptor> Found() { return std::move(found_); }

private:
    /// The folder in which each person may have a trash. Without the sticky bit one person could
    /// put something else in the place of another's.
    static FileDescriptor OpenShared(int volume) {
        // It need not be readable to be gone through.
        FileDescriptor shared(
            ::openat(volume, ".Trash", O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        struct stat status {};
        if (!shared.open() || ::fstat(shared.number(), &status) != 0) return {};
        if ((status.st_mode & S_ISVTX) == 0) return {};
        return shared;
    }

    uid_t person_;
    std::set<std::pair<dev_t, ino_t>> seen_;
    std::vector<FileDescriptor> found_;
};

class Count final : public RemovalWatcher {
public:
    explicit Count(Emptying& emptying) : emptying_(emptying) {}
    bool Removed() override {
        ++emptying_.files_removed;
        return !emptying_.cancelled;
    }

private:
    Emptying& emptying_;
};

/// One trash folder, with the names of what was in it when it was looked at.
class Contents {
public:
    explicit Contents(int trash)
        : trash_(trash),
          files_(OpenFolder(trash, "files")),
          no_files_(!files_.open() && errno == ENOENT) {
        const FileDescriptor info = OpenFolder(trash, "info");
        const FileDescriptor expunged = OpenFolder(trash, "expunged");
        // The notes first: a thing that is thrown away just now is noted before it comes.
        if (info.open()) notes_ = NamesIn(info.number());
        if (files_.open()) things_ = NamesIn(files_.number());
        if (expunged.open()) remains_ = NamesIn(expunged.number());
    }

    [[nodiscard]] std::int64_t Things() const { return static_cast<std::int64_t>(things_.size()); }

    void Empty(Emptying& emptying) {
        Count count(emptying);
        // The sizes that others remember; they are counted again where they are missing.
        ::unlinkat(trash_, "directorysizes", 0);
        const FileDescriptor info = OpenFolder(trash_, "info");
        for (const std::string& thing : things_) {
            if (emptying.cancelled) return;
            const bool gone = RemoveTree(files_.number(), thing, count);
            if (gone && info.open()) Forget(info.number(), thing);
            ++emptying.things_done;
        }
        // Notes of nothing. They all stay where nobody can say what is there.
        for (const std::string& note : notes_) {
            if (emptying.cancelled || !info.open() || !(files_.open() || no_files_)) break;
            if (!IsNoteOfSomething(note)) RemoveTree(info.number(), note, count);
        }
        // What other programs had moved out of sight before they could remove it.
        const FileDescriptor expunged = OpenFolder(trash_, "expunged");
        for (const std::string& remains : remains_) {
            if (emptying.cancelled || !expunged.open()) break;
            RemoveTree(expunged.number(), remains, count);
        }
    }

private:
    static void Forget(int info, const std::string& thing) {
        ::unlinkat(info, (thing + std::string(kNoteEnding)).c_str(), 0);
    }

    [[nodiscard]] bool IsNoteOfSomething(const std::string& note) const {
        if (!note.ends_with(kNoteEnding) || !files_.open()) return false;
        return HasEntry(files_.number(), note.substr(0, note.size() - kNoteEnding.size()));
    }

    int trash_;
    FileDescriptor files_;
    bool no_files_;
    std::vector<std::string> notes_;
    std::vector<std::string> things_;
    std::vector<std::string> remains_;
};

}  // namespace

std::vector<FileDescriptor> OpenTrashes(const TrashPlaces& places) {
    TrashFinder finder(places.person);
    finder.Add(OpenFolder(AT_FDCWD, places.home));
    for (const std::string& top : places.tops) finder.LookIn(top);
    return finder.Found();
}

void EmptyTrashes(const std::vector<FileDescriptor>& trashes, Emptying& emptying) {
    std::vector<Contents> all;
    for (const FileDescriptor& trash : trashes) {
        all.emplace_back(trash.number());
        emptying.things += all.back().Things();
    }
    for (Contents& contents : all) contents.Empty(emptying);
}

bool AreEmpty(const std::vector<FileDescriptor>& trashes) {
    return std::ranges::none_of(trashes, [](const FileDescriptor& trash) {
        const FileDescriptor files = OpenFolder(trash.number(), "files");
        return files.open() && !NamesIn(files.number()).empty();
    });
}

}  // namespace corvane::linux_desktop
