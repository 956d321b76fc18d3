// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/files/file_error.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace corvane::linux_desktop {
namespace {

bool FolderIsThere(const std::string& path) {
    const auto folder = std::filesystem::path(path).parent_path();
    std::error_code ignored;
    return folder.empty() || std::filesystem::is_directory(folder, ignored);
}

}  // namespace

RuntimeError FileError(int error_number, const std::string& path) {
    switch (error_number) {
        case ENOENT:
            if (FolderIsThere(path)) return {kFileNotFound, "File not found: " + path};
            [[fallthrough]];
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
            return {kPathNotFound, "Path not found: " + path};
        case EEXIST:
            return {kFileAlreadyExists, "File already exists: " + path};
        case EACCES:
        case EPERM:
        case EISDIR:
        case EROFS:
        case ETXTBSY:
            return {kPermissionDenied, "Permission denied: " + path};
        case ENOSPC:
        case EDQUOT:
            return {kDiskFull, "Disk full: " + path};
        default:
            return {kDeviceIOError, "Device I/O error: " + path};
    }
}

}  // namespace corvane::linux_desktop
