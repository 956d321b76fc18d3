// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lay_out/lay_out.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <fstream>
#include <optional>
#include <sstream>
#include <system_error>

namespace corvane {
namespace {

namespace fs = std::filesystem;

/// What a person teaches the program lies in these.
bool IsTaughtByPerson(const fs::path& file) {
    return file == "keywords.txt" || file == "keywords.xml";
}

/// Even if it is a link to what can't be reached at present.
bool IsThere(const fs::path& file) {
    std::error_code unreachable;
    return fs::symlink_status(file, unreachable).type() != fs::file_type::not_found;
}

std::string ReasonOf(int error) {
    return std::generic_category().message(error);
}

/// Nothing if the file can't be read.
std::optional<std::string> ContentOf(const fs::path& file) {
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream content;
    if (stream) content << stream.rdbuf();
    // That nothing came is no failure: the file may be empty.
    if (!stream || content.bad()) return std::nullopt;
    return content.str();
}

/// A name beside the file that no other process uses.
fs::path NameBeside(const fs::path& file) {
    return file.string() + "." + std::to_string(::getpid()) + ".new";
}

void PutInPlace(const fs::path& fresh, const fs::path& file) {
    std::error_code error;
    fs::rename(fresh, file, error);
    if (!error) return;
    std::error_code left;
    fs::remove(fresh, left);
    throw LayOutFailed(file, error.message());
}

/// Puts what was written on the disk; else `errno` tells why not. Without it a file can come out of
/// a power failure under its final name, and empty: then nothing would seem to have been taught.
bool Keep(const fs::path& file) {
    const int written = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (written < 0) return false;
    const bool kept = ::fsync(written) == 0;
    const int reason = errno;
    ::close(written);
    errno = reason;
    // EINVAL: this file system has nothing to wait for.
    return kept || reason == EINVAL;
}

/// On a full disk what was there stays.
void Write(const std::string& content, const fs::path& file) {
    const fs::path fresh = NameBeside(file);
    errno = 0;
    std::ofstream stream(fresh, std::ios::binary);
    stream << content;
    stream.close();
    if (!stream || !Keep(fresh)) {
        const std::string reason = ReasonOf(errno);
        std::error_code left;
        fs::remove(fresh, left);
        throw LayOutFailed(file, reason);
    }
    PutInPlace(fresh, file);
}

void MakeFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw LayOutFailed(folder, error.message());
}

}  // namespace

DataFiles FilesUnder(const fs::path& folder) {
    std::error_code error;
    DataFiles files;
    fs::recursive_directory_iterator entry(folder, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error))
        if (entry->is_regular_file()) files.push_back(entry->path().lexically_relative(folder));
    if (error) throw LayOutFailed(folder, error.message());
    std::ranges::sort(files);
    return files;
}

void LayOut(const DataFiles& files, const fs::path& from, const fs::path& to) {
    MakeFolder(to);
    for (const fs::path& file : files) {
        const fs::path copy = to / file;
        if (IsTaughtByPerson(file) && IsThere(copy)) continue;
        errno = 0;
        const auto content = ContentOf(from / file);
        if (!content) throw LayOutFailed(from / file, ReasonOf(errno));
        // By content: a package's files are older than the day on which they are installed.
        if (ContentOf(copy) == content) continue;
        MakeFolder(copy.parent_path());
        Write(*content, copy);
    }
}

bool AreLaidOut(const DataFiles& files, const fs::path& folder) {
    return std::ranges::all_of(files, [&](const fs::path& file) {
        std::error_code unreachable;
        return IsTaughtByPerson(file) ? IsThere(folder / file)
                                      : fs::exists(folder / file, unreachable);
    });
}

void LayLink(const fs::path& target, const fs::path& link) {
    std::error_code error;
    if (fs::read_symlink(link, error) == target && !error) return;
    const fs::path fresh = NameBeside(link);
    fs::create_symlink(target, fresh, error);
    if (error) throw LayOutFailed(link, error.message());
    PutInPlace(fresh, link);
}

void LayOutProgram(const DataFiles& files, const Installation& installed, const fs::path& to) {
    std::exception_ptr failure;
    try {
        LayOut(files, installed.data, to);
    } catch (const LayOutFailed&) {
        failure = std::current_exception();
    }
    try {
        LayLink(installed.executable, to / "corvane");
    } catch (const LayOutFailed&) {
        if (!failure) throw;
    }
    if (failure) std::rethrow_exception(failure);
}

}  // namespace corvane
