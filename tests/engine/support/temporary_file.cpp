// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/temporary_file.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace corvane::engine::testing {

TemporaryFile::TemporaryFile(std::string_view content)
    : path_((std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").string()) {
    const int file = mkstemp(path_.data());
    if (file >= 0) close(file);
    std::ofstream(path_, std::ios::binary) << content;
}

TemporaryFile::~TemporaryFile() {
    std::filesystem::remove(path_);
}

}  // namespace corvane::engine::testing
