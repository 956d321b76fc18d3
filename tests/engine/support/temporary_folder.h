// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace corvane::engine::testing {

/// A folder that is there as long as this.
class TemporaryFolder {
public:
    TemporaryFolder()
        : path_((std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").string()) {
        if (mkdtemp(path_.data()) == nullptr) path_.clear();
    }
    ~TemporaryFolder() {
        if (!path_.empty()) std::filesystem::remove_all(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

private:
    std::string path_;
};

}  // namespace corvane::engine::testing
