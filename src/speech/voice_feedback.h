// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/speech_api.h"
#include "runtime/forms/form.h"
#include "runtime/forms/text_box.h"
#include "runtime/nullable.h"
#include "runtime/numbers.h"
#include "shell/form2.h"

namespace corvane {

/// Marks a word of a text, by its place and length in characters, unless the mark would be hidden
/// or there is no text. That the text holds a word there is not checked.
void MarkWord(forms::TextBox& text, Long CharacterPosition, Long Length);

/// Shows what the voice is doing: how loud it is, and on the whiteboard the word that is being
/// read. None of these handlers passes over an error.
class VoiceFeedback {
public:
    VoiceFeedback(Nullable<ISpeechVoice>& voice, forms::Lazy<Form2>& main_window);

    /// A level outside 0 to 100 does not fit the bar, which raises.
    void voice_AudioLevel(Long StreamNumber, const Variant& StreamPosition, Long AudioLevel);
    void voice_EndStream(Long StreamNumber, const Variant& StreamPosition);
    void voice_Word(Long StreamNumber, const Variant& StreamPosition, Long CharacterPosition,
                    Long Length);

private:
    Nullable<ISpeechVoice>& voice_;
    forms::Lazy<Form2>& main_window_;
};

}  // namespace corvane
