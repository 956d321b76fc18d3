// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/fresh_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace corvane::engine {

FreshFile::FreshFile(std::string path, const std::string& content) : path_(std::move(path)) {
    std::error_code failure;
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), failure);
    std::ofstream file(Beside(), std::ios::binary | std::ios::trunc);
    file << content;
    file.close();
    written_ = static_cast<bool>(file);
}

FreshFile::~FreshFile() {
    std::error_code failure;
    if (!placed_) std::filesystem::remove(Beside(), failure);
}

bool FreshFile::TakePlace() {
    std::error_code failure;
    if (written_ && !placed_) std::filesystem::rename(Beside(), path_, failure);
    placed_ = written_ && !failure;
    return placed_;
}

}  // namespace corvane::engine
