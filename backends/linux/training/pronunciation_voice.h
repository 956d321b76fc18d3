// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "engine/voice/voice.h"

namespace corvane::linux_desktop {

/// Says how a word is said. Its voice is there from the first word on, and each word cuts off the
/// one before.
class PronunciationVoice {
public:
    /// client_name: what the user's sound settings call the program.
    explicit PronunciationVoice(std::string client_name) : client_name_(std::move(client_name)) {}

    /// phones: of the acoustic model, parted by blanks. Raises kAutomationError when no voice is
    /// installed.
    void Say(const std::string& phones);
    /// Cuts off what is being said.
    void Hush();

private:
    std::string client_name_;
    std::unique_ptr<engine::Voice> voice_;
};

}  // namespace corvane::linux_desktop
