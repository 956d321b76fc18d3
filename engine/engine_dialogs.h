// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

namespace engine {
class UserProfile;
}

/// The engine's own dialogs, which whoever makes an engine gives it, since it knows no toolkit.
/// Each is shown over the window `parent` (0: over none) under the title, and the call returns when
/// it is closed; messages may run meanwhile. Called on the loop's thread. The profile outlives the
/// call.
class EngineDialogs {
public:
    virtual ~EngineDialogs() = default;

    /// Has the user read sentences aloud and trains `profile` to the voice. sentence: to be read
    /// first; may be empty.
    virtual void UserTraining(std::uint32_t parent, const std::string& title,
                              const std::string& sentence, engine::UserProfile& profile) = 0;

    /// Lets the user add words to `profile` and remove them. word: to be filled in; may be empty.
    virtual void AddRemoveWord(std::uint32_t parent, const std::string& title,
                               const std::string& word, engine::UserProfile& profile) = 0;
};

}  // namespace corvane
