// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/files/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "linux/files/file_error.h"
#include "linux/files/text_stream.h"
#include "linux/system/drives.h"

namespace corvane::linux_desktop {
namespace {

FileDescriptor Open(const std::string& path, int flags) {
    FileDescriptor file(::open(path.c_str(), flags | O_CLOEXEC, 0666));
    if (!file.open()) throw FileError(errno, path);
    return file;
}

}  // namespace

std::unique_ptr<ITextStream> FileSystem::OpenTextFile(const std::string& path, IOMode /*mode*/,
                                                      bool create) {
    return std::make_unique<ReadStream>(Open(path, O_RDONLY | (create ? O_CREAT : 0)), path);
}

std::unique_ptr<ITextStream> FileSystem::CreateTextFile(const std::string& path, bool overwrite) {
    const int existing = overwrite ? O_TRUNC : O_EXCL;
    return std::make_unique<WriteStream>(Open(path, O_WRONLY | O_CREAT | existing), path);
}

std::int64_t FileSystem::FileLen(const std::string& path) {
    struct stat file {};
    if (::stat(path.c_str(), &file) == 0) return file.st_size;
    if (errno == ENOENT || errno == ENOTDIR)
        throw RuntimeError(kFileNotFound, "File not found: " + path);
    throw FileError(errno, path);
}

void FileSystem::DeleteFile(const std::string& path) {
    if (::unlink(path.c_str()) == 0) return;
    // Nothing to remove is one failure, whichever part of the path is missing.
    if (errno == ENOENT || errno == ENOTDIR)
        throw RuntimeError(kFileNotFound, "File not found: " + path);
    throw FileError(errno, path);
}

std::vector<DriveObject> FileSystem::Drives() {
    std::vector<DriveObject> drives;
    for (const Drive& drive : PresentDrives())
        drives.push_back({.driveletter = std::string(1, drive.letter)});
    std::ranges::sort(drives, {}, &DriveObject::driveletter);
    return drives;
}

}  // namespace corvane::linux_desktop
