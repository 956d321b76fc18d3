// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/language_runtime.h"
#include "platform/speech_api.h"
#include "runtime/failure.h"
#include "runtime/forms/form.h"
#include "runtime/nullable.h"
#include "runtime/numbers.h"
#include "shell/form2.h"

namespace corvane {

/// Says what the system has to say, and reads the whiteboard. Raises while there is no voice; where
/// an operation takes `step`, what fails of it is passed over in the caller's regime.
class Speaker {
public:
    Speaker(Nullable<ISpeechVoice>& voice, forms::Lazy<Form2>& main_window,
            ILanguageRuntime& runtime, IClipboard& clipboard);

    /// Flags of everything that is said; 0 until the main window's load sets them.
    Long SpFlags;

    /// Begins to say a text, in place of what is being said, and returns at once.
    void Speak(std::string_view text);

    void SayDate();
    void SayTime();
    /// `drive` is a letter, which is spelled.
    void SayFreeSpace(const std::string& drive, Long percent);
    void SayMemory(Long megabytes);
    /// Says goodbye, and waits for it no longer than a second.
    void SayGoodbye(const ResumeNext& step);

    /// Reads the whiteboard, and wants to be told of each word and of the end. The button Read does
    /// it without passing over an error.
    void Command2_Click();
    void ReadWhiteboard(const ResumeNext& step);
    /// Reads all text of the window that has the focus, by way of the clipboard and the whiteboard.
    /// The clipboard is taken as it stands, also if that window has copied nothing.
    void ReadAll(const ResumeNext& step);
    /// Reads what is highlighted in the window that has the focus, on the same way. If nothing is,
    /// the whiteboard is emptied and nothing is heard.
    void ReadSelected(const ResumeNext& step);

private:
    Nullable<ISpeechVoice>& voice_;
    forms::Lazy<Form2>& main_window_;
    ILanguageRuntime& runtime_;
    IClipboard& clipboard_;
};

}  // namespace corvane
