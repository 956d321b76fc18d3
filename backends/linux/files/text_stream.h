// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

#include "linux/files/file_descriptor.h"
#include "platform/automation.h"

namespace corvane::linux_desktop {

/// A file read to its end when it was opened: the files of this system are small, and what another
/// program does to them meanwhile can't tear a line.
class ReadStream final : public ITextStream {
public:
    /// Raises kPermissionDenied for a folder, kDeviceIOError when it can't be read.
    ReadStream(FileDescriptor file, std::string path);

    [[nodiscard]] bool AtEndOfStream() const override { return at_ == bytes_.size(); }
    std::string ReadLine() override;
    void WriteLine(const std::string& line) override;
    void Close() override;

private:
    std::string path_;
    std::string bytes_;
    std::size_t at_ = 0;
};

/// A file written line by line, with nothing held back: what can't be stored fails at once.
class WriteStream final : public ITextStream {
public:
    WriteStream(FileDescriptor file, std::string path);

    [[nodiscard]] bool AtEndOfStream() const override { return true; }
    std::string ReadLine() override;
    void WriteLine(const std::string& line) override;
    void Close() override;

private:
    FileDescriptor file_;
    std::string path_;
};

}  // namespace corvane::linux_desktop
