// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/user_voice.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "engine/fresh_file.h"
#include "platform/error.h"

namespace corvane::engine {
namespace {

/// A voice takes 6 kB; what is larger is none, and is not read at all.
constexpr std::uintmax_t kLargestFile = 100'000;

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
        // Both are written before either takes its place: what can't be kept is to change nothing.
        FreshFile voice(File(), WriteTransform(transform, model_));
        std::optional<FreshFile> before;
        if (present_) before.emplace(EarlierFile(), WriteTransform(*present_, model_));
        const auto kept = [&] {
            if (!voice.Written() || (before && !before->TakePlace()) || !voice.TakePlace())
                return false;
            std::error_code failure;
            if (!before) std::filesystem::remove(EarlierFile(), failure);
            return true;
        };
        if (!kept()) throw RuntimeError(kAutomationError, "The voice can't be kept in " + File());
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
