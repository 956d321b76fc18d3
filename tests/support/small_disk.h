// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

namespace corvane::testing {

/// A file system of 128 kB and 64 files in memory, which can be filled to its last byte and made
/// read only, for this process alone. Where that is forbidden it is not there, and a test of it has
/// to be skipped.
class SmallDisk {
public:
    SmallDisk() {
        std::string name = std::filesystem::temp_directory_path() / "corvane-disk-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr) return;
        path_ = name;
        // Mounts of one's own: nobody else sees it, and whatever becomes of the test it ends then.
        there_ = (::unshare(CLONE_NEWNS) == 0 || BecomesRootOfItsOwn()) &&
                 ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                 ::mount("none", name.c_str(), "tmpfs", 0, "size=128k,nr_inodes=64") == 0;
    }
    ~SmallDisk() {
        if (there_) ::umount2(path_.c_str(), MNT_DETACH);
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool IsThere() const { return there_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ / name; }

    void Put(const std::string& name, const std::string& content) const {
        const auto file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
    }
    [[nodiscard]] std::string Bytes(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// All that lies on it but what fills it, by path from its top.
    [[nodiscard]] std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path_))
            if (entry.is_regular_file() && !entry.path().filename().string().starts_with(kFiller)) {
                const std::string name = entry.path().lexically_relative(path_);
                files[name] = Bytes(name);
            }
        return files;
    }

    /// No byte more has room than what is free in the last block of each file.
    void Fill() const {
        const int file = ::open((path_ / kFiller).c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        const std::array<char, 1024> block{};
        while (::write(file, block.data(), block.size()) > 0) {
        }
        ::close(file);
    }
    /// Not even an empty file more has room.
    void FillWithFiles() const {
        for (int i = 0; i < 64; ++i) {
            const std::string name = std::string(kFiller) + std::to_string(i);
            ::close(::open((path_ / name).c_str(), O_WRONLY | O_CREAT, 0600));
        }
    }
    /// Room for that many bytes more, in whole blocks of 4096.
    void MakeRoom(std::uintmax_t bytes) const {
        const auto filler = path_ / kFiller;
        std::filesystem::resize_file(filler, std::filesystem::file_size(filler) - bytes);
    }
    void MakeRoom() const { std::filesystem::remove(path_ / kFiller); }
    bool MakeReadOnly() const {
        return ::mount("none", path_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

private:
    /// As a person who may not mount anything: root of a name space, whose files are the person's.
    /// Without the names of user and group nothing could be created on the disk.
    static bool BecomesRootOfItsOwn() {
        const std::string user = "0 " + std::to_string(::geteuid()) + " 1";
        const std::string group = "0 " + std::to_string(::getegid()) + " 1";
        return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && Tell("setgroups", "deny") &&
               Tell("uid_map", user) && Tell("gid_map", group);
    }
    static bool Tell(const std::string& file, const std::string& text) {
        return static_cast<bool>(std::ofstream("/proc/self/" + file) << text << std::flush);
    }

    static constexpr std::string_view kFiller = "filler";

    std::filesystem::path path_;
    bool there_ = false;
};

}  // namespace corvane::testing
