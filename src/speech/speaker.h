// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/speech_api.h"
#include "runtime/failure.h"
#include "runtime/forms/form.h"
#include "runtime/nullable.h"
#include "runtime/numbers.h"
#include "shell/form2.h"

namespace corvane {

/// Says what the system has to say, and reads the whiteboard. Raises while there is no voice.
class Speaker {
public:
    Speaker(Nullable<ISpeechVoice>& voice, forms::Lazy<Form2>& main_window);

    /// Flags of everything that is said; 0 until the main window's load sets them.
    Long SpFlags;

    /// Begins to say a text, in place of what is being said, and returns at once.
    void Speak(const std::string& text);

    /// Reads the whiteboard, and wants to be told of each word and of the end.
    void ReadWhiteboard();

    /// Says goodbye, and waits for it no longer than a second. What fails is passed over in the
    /// caller's regime.
    void SayGoodbye(const ResumeNext& step);

private:
    Nullable<ISpeechVoice>& voice_;
    forms::Lazy<Form2>& main_window_;
};

}  // namespace corvane
