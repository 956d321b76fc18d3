// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <utility>

namespace corvane::linux_desktop {

/// Owns one file descriptor; -1 is none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(other.Release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() {
        if (number_ >= 0) ::close(number_);
    }

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] bool open() const { return number_ >= 0; }
    /// Hands the descriptor over to the caller.
    [[nodiscard]] int Release() { return std::exchange(number_, -1); }

private:
    int number_ = -1;
};

}  // namespace corvane::linux_desktop
