// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "engine/adaptation/speaker_transform.h"

namespace corvane::engine {

/// Told a line for people, without a line's end.
using Complain = std::function<void(const std::string&)>;

/// The voice of the one who uses the engine: the transform that was trained for it, kept in a file
/// of a folder of theirs. For the loop's thread.
class UserVoice {
public:
    using Transform = std::shared_ptr<const SpeakerTransform>;

    /// Reads what is kept. A file that is broken, or belongs to another acoustic model, is left out
    /// with a complaint, which may be empty. folder: made when something is to be kept; empty if
    /// nothing is ever to be kept.
    UserVoice(std::string folder, const std::string& acoustic_model, const Complain& complain);

    /// Empty while the voice is taken for one of the model's.
    [[nodiscard]] const Transform& Present() const { return present_; }

    /// From now on the voice lies there. Raises kAutomationError, and nothing has changed, when it
    /// can't be kept.
    void Keep(const SpeakerTransform& transform);

    /// Undoes the last Keep, or one of an earlier run: what was before it is there again. Once is
    /// all. Raises kAutomationError when it can't be undone.
    void Undo();

private:
    [[nodiscard]] Transform Read(const std::string& file, const Complain& complain) const;
    [[nodiscard]] std::string File() const { return folder_ + "/voice.mllr"; }
    [[nodiscard]] std::string EarlierFile() const { return folder_ + "/voice-before.mllr"; }

    std::string folder_;
    std::string model_;
    Transform present_;
    Transform earlier_;
};

}  // namespace corvane::engine
