// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/user_voice.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/error.h"

namespace corvane::engine {
namespace {

/// A voice takes 6 kB; what is larger is none, and is not read at all.
constexpr std::uintmax_t kLargestFile = 100'000;

void WriteFile(const std::string& path, const std::string& text) {
    const std::string fresh = path + ".new";
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    std::error_code failure;
    if (file) std::filesystem::rename(fresh, path, failure);
    if (!file || failure)
        throw RuntimeError(kAutomationError, "The voice can't be kept in " + path);
}

}  // namespace

UserVoice::UserVoice(std::string folder, const std::string& acoustic_model,
                     const Complain& complain)
    : folder_(std::move(folder)), model_(MarkOfModel(acoustic_model)) {
    if (folder_.empty()) return;
    present_ = Read(File(), complain);
    earlier_ = Read(EarlierFile(), complain);
}

UserVoice::Transform UserVoice::Read(const std::string& file, const Complain& complain) const {
    const auto ignore = [&](const std::string& why) {
        if (complain) complain("The voice in " + file + " is ignored: " + why + ".");
        return nullptr;
    };
    std::error_code failure;
    const std::filesystem::file_status status = std::filesystem::status(file, failure);
    if (status.type() == std::filesystem::file_type::not_found) return nullptr;
    if (!std::filesystem::is_regular_file(status)) return ignore("it can't be read");
    const std::uintmax_t size = std::filesystem::file_size(file, failure);
    if (failure || size > kLargestFile) return ignore("it is too large");
    std::string text(static_cast<std::size_t>(size), '\0');
    if (!std::ifstream(file, std::ios::binary)
             .read(text.data(), static_cast<std::streamsize>(size)))
        return ignore("it can't be read");
    std::string why;
    const std::optional<SpeakerTransform> transform = ReadTransform(text, model_, why);
    if (!transform) return ignore(why);
    return std::make_shared<const SpeakerTransform>(*transform);
}

void UserVoice::Keep(const SpeakerTransform& transform) {
    if (!folder_.empty()) {
        std::error_code failure;
        std::filesystem::create_directories(folder_, failure);
        if (present_)
            WriteFile(EarlierFile(), WriteTransform(*present_, model_));
        else
            std::filesystem::remove(EarlierFile(), failure);
        WriteFile(File(), WriteTransform(transform, model_));
    }
    earlier_ = std::exchange(present_, std::make_shared<const SpeakerTransform>(transform));
}

void UserVoice::Undo() {
    if (!folder_.empty()) {
        std::error_code failure;
        if (earlier_)
            std::filesystem::rename(EarlierFile(), File(), failure);
        else
            std::filesystem::remove(File(), failure);
        if (failure) throw RuntimeError(kAutomationError, "The voice can't be undone in " + File());
    }
    present_ = std::exchange(earlier_, nullptr);
}

}  // namespace corvane::engine
