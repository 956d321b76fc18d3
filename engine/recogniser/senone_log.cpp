// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recogniser/senone_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace corvane::engine {
namespace {

constexpr std::string_view kHeaderEnd = "endhdr\n";
constexpr std::size_t kByteOrderMark = 4;
constexpr std::size_t kLongestHeader = 4096;

/// A folder for one file, gone with everything in it at the end of the block.
class BriefFolder {
public:
    explicit BriefFolder(const std::string& parent) : name_(parent + "/corvane-XXXXXX") {
        made_ = mkdtemp(name_.data()) != nullptr;
    }
    ~BriefFolder() {
        std::error_code ignored;
        if (made_) std::filesystem::remove_all(name_, ignored);
    }
    BriefFolder(const BriefFolder&) = delete;
    BriefFolder& operator=(const BriefFolder&) = delete;

    [[nodiscard]] int Open() const {
        return made_ ? open(name_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC) : -1;
    }

    [[nodiscard]] int OpenItsFile() const {
        std::error_code error;
        const std::filesystem::directory_iterator file(name_, error);
        if (error || file == std::filesystem::directory_iterator()) return -1;
        return open(file->path().c_str(), O_RDWR | O_CLOEXEC);
    }

private:
    std::string name_;
    bool made_ = false;
};

bool ReadFully(int file, void* to, std::size_t bytes, std::size_t from) {
    auto* next = static_cast<char*>(to);
    while (bytes > 0) {
        const ssize_t count = pread(file, next, bytes, static_cast<off_t>(from));
        if (count <= 0) return false;
        next += count;
        from += static_cast<std::size_t>(count);
        bytes -= static_cast<std::size_t>(count);
    }
    return true;
}

/// Where the scores begin; 0 if the header has no end.
std::size_t HeaderSize(int file, std::size_t file_size) {
    std::string header(std::min(file_size, kLongestHeader), '\0');
    if (!ReadFully(file, header.data(), header.size(), 0)) return 0;
    const std::size_t end = header.find(kHeaderEnd);
    return end == std::string::npos ? 0 : end + kHeaderEnd.size() + kByteOrderMark;
}

}  // namespace

SenoneLog::SenoneLog(std::size_t senones, std::string memory_folder)
    : senones_(senones),
      memory_folder_(std::move(memory_folder)),
      folder_(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC)) {}

SenoneLog::~SenoneLog() {
    if (folder_ >= 0) close(folder_);
    if (log_ >= 0) close(log_);
}

std::string SenoneLog::Folder() const {
    return "/proc/self/fd/" + std::to_string(folder_);
}

// Each frame is the number of its scores and the scores.
std::size_t SenoneLog::FrameBytes() const {
    return (senones_ + 1) * sizeof(std::int16_t);
}

bool SenoneLog::Begin(std::size_t frames, const std::function<bool()>& start_utterance) {
    if (log_ >= 0) close(std::exchange(log_, -1));
    const BriefFolder folder(memory_folder_);
    const int opened = folder.Open();
    if (opened < 0) return false;
    // The decoder was told one name for good; a folder of the same name again could be another's.
    const bool ready = folder_ >= 0 && dup3(opened, folder_, O_CLOEXEC) >= 0;
    close(opened);
    if (!ready || !start_utterance()) return false;
    log_ = folder.OpenItsFile();
    return log_ >= 0 && fallocate(log_, FALLOC_FL_KEEP_SIZE, 0,
                                  static_cast<off_t>(kLongestHeader + frames * FrameBytes())) == 0;
}

std::optional<SenoneScores> SenoneLog::Read() const {
    struct stat status {};
    if (log_ < 0 || fstat(log_, &status) != 0) return std::nullopt;
    const auto file_size = static_cast<std::size_t>(status.st_size);
    const std::size_t begin = HeaderSize(log_, file_size);
    if (begin == 0 || begin > file_size) return std::nullopt;
    const std::size_t frames = (file_size - begin) / FrameBytes();
    SenoneScores scores{.senones = senones_, .costs = {}};
    scores.costs.resize(frames * senones_);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        const std::size_t at = begin + frame * FrameBytes();
        std::int16_t count = 0;
        if (!ReadFully(log_, &count, sizeof count, at) || std::cmp_not_equal(count, senones_) ||
            !ReadFully(log_, scores.costs.data() + frame * senones_,
                       senones_ * sizeof(std::int16_t), at + sizeof count))
            return std::nullopt;
    }
    return scores;
}

}  // namespace corvane::engine
