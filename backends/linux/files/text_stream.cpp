// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/files/text_stream.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include "linux/files/file_error.h"

namespace corvane::linux_desktop {

ReadStream::ReadStream(FileDescriptor file, std::string path) : path_(std::move(path)) {
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t count = ::read(file.number(), block.data(), block.size());
        if (count == 0) return;
        if (count > 0)
            bytes_.append(block.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw FileError(errno, path_);
    }
}

std::string ReadStream::ReadLine() {
    if (AtEndOfStream()) throw RuntimeError(kInputPastEnd, "Input past end of file: " + path_);
    const std::size_t end = bytes_.find('\n', at_);
    std::string line = bytes_.substr(at_, end - at_);
    if (end == std::string::npos) {
        at_ = bytes_.size();
        return line;
    }
    at_ = end + 1;
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

void ReadStream::WriteLine(const std::string& /*line*/) {
    throw FileError(EACCES, path_);
}

void ReadStream::Close() {
    at_ = bytes_.size();
}

WriteStream::WriteStream(FileDescriptor file, std::string path)
    : file_(std::move(file)), path_(std::move(path)) {}

std::string WriteStream::ReadLine() {
    throw RuntimeError(kInputPastEnd, "Input past end of file: " + path_);
}

void WriteStream::WriteLine(const std::string& line) {
    const std::string bytes = line + "\r\n";
    for (std::string_view left = bytes; !left.empty();) {
        const ssize_t count = ::write(file_.number(), left.data(), left.size());
        if (count >= 0)
            left.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw FileError(errno, path_);
    }
}

void WriteStream::Close() {
    // Network and quota file systems tell only here that they could not store it.
    if (file_.open() && ::close(file_.Release()) != 0 && errno != EINTR)
        throw FileError(errno, path_);
}

}  // namespace corvane::linux_desktop
