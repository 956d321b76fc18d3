// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "speech/voice_feedback.h"

#include "runtime/text.h"

namespace corvane {

void MarkWord(forms::TextBox& text, Long CharacterPosition, Long Length) {
    if (text.HideSelection()) return;
    if (text.Text().empty()) return;
    text.SetSelStart(CharacterPosition);
    text.SetSelLength(Length);
}

VoiceFeedback::VoiceFeedback(Nullable<ISpeechVoice>& voice, forms::Lazy<Form2>& main_window)
    : voice_(voice), main_window_(main_window) {}

void VoiceFeedback::voice_AudioLevel(Long /*StreamNumber*/, const Variant& /*StreamPosition*/,
                                     Long AudioLevel) {
    main_window_->ProgressBar2.SetValue(AudioLevel);
    main_window_->Text4.SetText(CStr(AudioLevel));
}

void VoiceFeedback::voice_EndStream(Long /*StreamNumber*/, const Variant& /*StreamPosition*/) {
    // Arithmetic, deliberately, and not the clearing of a bit: the end of a reading takes 548 to
    // 516, and the end of a further sentence that to 484, in which the bit of words is set again
    // and that of the level is not.
    const Long interests = Long(voice_->EventInterests()) - SVEWordBoundary;
    voice_->SetEventInterests(interests.rep());
    main_window_->Text3.SetSelStart(Len(main_window_->Text3.Text()));
    main_window_->Text3.SetSelLength(0);
}

void VoiceFeedback::voice_Word(Long /*StreamNumber*/, const Variant& /*StreamPosition*/,
                               Long CharacterPosition, Long Length) {
    MarkWord(main_window_->Text3, CharacterPosition, Length);
}

}  // namespace corvane
