// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/trash.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "linux/files/file_descriptor.h"
#include "linux/system/expunging.h"
#include "linux/system/folder_removal.h"

namespace corvane::linux_desktop {
namespace {

constexpr std::string_view kNoteEnding = ".trashinfo";

FileDescriptor OpenFolder(int parent, const std::string& name) {
    return FileDescriptor(
        ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// The folder in which each person may have a trash on a volume. Without the sticky bit one person
/// could put something else in the place of another's.
FileDescriptor OpenShared(int volume) {
    // It need not be readable to be gone through.
    FileDescriptor shared(
        ::openat(volume, ".Trash", O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (!shared.open() || ::fstat(shared.number(), &status) != 0) return {};
    if ((status.st_mode & S_ISVTX) == 0) return {};
    return shared;
}

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

    [[nodiscard]] bool AreGone() const {
        const FileDescriptor expunged = OpenFolder(trash_, "expunged");
        return HasNothing(files_) && HasNothing(expunged);
    }

    [[nodiscard]] std::int64_t Things() const { return static_cast<std::int64_t>(things_.size()); }

    void Empty(Emptying& emptying) {
        Count count(emptying);
        // What had been moved out of sight when whoever did it was cut off. It goes first,
        // since on a full disk others may need its room to be moved there.
        const FileDescriptor expunged = OpenFolder(trash_, "expunged");
        for (const std::string& remains : remains_) {
            if (emptying.cancelled || !expunged.open()) break;
            RemoveTree(expunged.number(), remains, count);
        }
        // The sizes that others remember; they are counted again where they are missing.
        ::unlinkat(trash_, "directorysizes", 0);
        const FileDescriptor info = OpenFolder(trash_, "info");
        for (const std::string& thing : things_) {
            if (emptying.cancelled) return;
            const bool gone = Expunge(trash_, files_.number(), thing, count);
            if (gone && info.open()) Forget(info.number(), thing);
            ++emptying.things_done;
        }
        // Notes of nothing. They all stay where nobody can say what is there.
        for (const std::string& note : notes_) {
            if (emptying.cancelled || !info.open() || !(files_.open() || no_files_)) break;
            if (!IsNoteOfSomething(note)) RemoveTree(info.number(), note, count);
        }
    }

private:
    static bool HasNothing(const FileDescriptor& folder) {
        return !folder.open() || NamesIn(folder.number()).empty();
    }

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

/// Goes through all places, and empties each trash once.
class Round {
public:
    Round(uid_t person, Emptying& emptying) : person_(person), emptying_(emptying) {}

    void EmptyHome(const std::string& home) { Empty(OpenFolder(AT_FDCWD, home)); }

    void EmptyVolume(const std::string& top) {
        if (emptying_.cancelled) return;
        const FileDescriptor volume(::open(top.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!volume.open()) return;
        const std::string person = std::to_string(person_);
        const FileDescriptor shared = OpenShared(volume.number());
        if (shared.open()) Empty(OpenFolder(shared.number(), person));
        Empty(OpenFolder(volume.number(), ".Trash-" + person));
    }

    [[nodiscard]] bool all_gone() const { return all_gone_; }

private:
    void Empty(const FileDescriptor& trash) {
        struct stat status {};
        if (!trash.open() || ::fstat(trash.number(), &status) != 0) return;
        if (status.st_uid != person_) return;
        // A volume that is mounted twice has one trash.
        if (!seen_.insert({status.st_dev, status.st_ino}).second) return;
        Contents contents(trash.number());
        emptying_.things += contents.Things();
        contents.Empty(emptying_);
        all_gone_ = all_gone_ && contents.AreGone();
    }

    uid_t person_;
    Emptying& emptying_;
    std::set<std::pair<dev_t, ino_t>> seen_;
    bool all_gone_ = true;
};

}  // namespace

bool EmptyTrashes(const TrashPlaces& places, Emptying& emptying) {
    Round round(places.person, emptying);
    round.EmptyHome(places.home);
    for (const std::string& top : places.tops) round.EmptyVolume(top);
    return round.all_gone();
}

}  // namespace corvane::linux_desktop
