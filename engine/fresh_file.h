// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace corvane::engine {

/// The new content of a file, written whole beside it before it takes its place: what there is no
/// room for leaves the old content as it is, and nothing behind.
class FreshFile {
public:
    /// Writes the content; whether that succeeded shows when it is to take its place. The folder of
    /// `path` is made where it is missing.
    FreshFile(std::string path, const std::string& content);
    /// What has not taken its place is removed.
    ~FreshFile();
    FreshFile(const FreshFile&) = delete;
    FreshFile& operator=(const FreshFile&) = delete;

    [[nodiscard]] bool Written() const { return written_; }
    /// False, and the file is as it was, when the content could not be written or put there.
    [[nodiscard]] bool TakePlace();

private:
    [[nodiscard]] std::string Beside() const { return path_ + ".new"; }

    std::string path_;
    bool written_ = false;
    bool placed_ = false;
};

}  // namespace corvane::engine
