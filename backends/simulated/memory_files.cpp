// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/memory_files.h"

#include <utility>

#include "platform/error.h"
#include "runtime/text.h"

namespace corvane::simulated {
namespace {

class MemoryStream final : public ITextStream {
public:
    MemoryStream(CallRecord& record, std::shared_ptr<std::string> bytes)
        : record_(record), bytes_(std::move(bytes)) {}

    bool AtEndOfStream() const override { return at_ >= bytes_->size(); }

    std::string ReadLine() override {
        record_.Quietly("ReadLine");
        if (AtEndOfStream()) throw RuntimeError(kInputPastEnd, "Input past end of file");
        const auto end = bytes_->find('\n', at_);
        std::string line = bytes_->substr(at_, end - at_);
        at_ = end == std::string::npos ? bytes_->size() : end + 1;
        if (end != std::string::npos && line.ends_with('\r')) line.pop_back();
        return line;
    }

    void WriteLine(const std::string& line) override {
        record_.Quietly("WriteLine");
        bytes_->append(line).append(kCrLf);
    }

    void Close() override { record_.Quietly("Close"); }

private:
    CallRecord& record_;
    std::shared_ptr<std::string> bytes_;
    std::size_t at_ = 0;
};

}  // namespace

MemoryFiles::MemoryFiles(CallRecord& record, const SimulatedMachine& machine)
    : record_(record), machine_(machine) {}

std::unique_ptr<ITextStream> MemoryFiles::OpenTextFile(const std::string& path, IOMode /*mode*/,
                                                       bool create) {
    record_.Call("OpenTextFile", path);
    auto file = files_.find(path);
    if (file == files_.end()) {
        if (!create) throw RuntimeError(kFileNotFound, "File not found: " + path);
        Put(path, {});
        file = files_.find(path);
    }
    return std::make_unique<MemoryStream>(record_, file->second);
}

std::unique_ptr<ITextStream> MemoryFiles::CreateTextFile(const std::string& path, bool overwrite) {
    record_.Call("CreateTextFile", path);
    if (!overwrite && files_.contains(path))
        throw RuntimeError(kFileAlreadyExists, "File already exists: " + path);
    Put(path, {});
    return std::make_unique<MemoryStream>(record_, files_.at(path));
}

std::int64_t MemoryFiles::FileLen(const std::string& path) {
    record_.Quietly("FileLen");
    const auto file = files_.find(path);
    if (file == files_.end()) throw RuntimeError(kFileNotFound, "File not found: " + path);
    return static_cast<std::int64_t>(file->second->size());
}

void MemoryFiles::DeleteFile(const std::string& path) {
    record_.Call("DeleteFile", path);
    if (files_.erase(path) == 0) throw RuntimeError(kFileNotFound, "File not found: " + path);
}

std::vector<DriveObject> MemoryFiles::Drives() {
    record_.Call("Drives");
    return machine_.Drives();
}

std::optional<std::string> MemoryFiles::Bytes(const std::string& path) const {
    const auto file = files_.find(path);
    return file == files_.end() ? std::nullopt : std::optional(*file->second);
}

void MemoryFiles::Put(const std::string& path, std::string bytes) {
    // In place: whoever has the file open sees it change.
    if (auto& file = files_[path])
        *file = std::move(bytes);
    else
        file = std::make_shared<std::string>(std::move(bytes));
}

void MemoryFiles::Remove(const std::string& path) {
    files_.erase(path);
}

}  // namespace corvane::simulated
