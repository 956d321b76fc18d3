// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/pad_text.h"

#include "runtime/text.h"

namespace corvane {

PadText::PadText(ILanguageRuntime& runtime, forms::Lazy<Form5>& pad)
    : runtime_(runtime), pad_(pad) {}

void PadText::Write(const ResumeNext& step, const std::string& text) {
    step([&] { pad_->txtSpeech.SetSelText(text); });
}

void PadText::BreakLine(const ResumeNext& step) {
    step([&] { pad_->txtSpeech.SetText(pad_->txtSpeech.Text() + std::string(kCrLf)); });
    step([&] { pad_->txtSpeech.SetSelStart(Len(pad_->txtSpeech.Text())); });
}

void PadText::Backspace(const ResumeNext& step) {
    step([&] { runtime_.SendKeys("{BS}", true); });
}

void PadText::Scratch(const ResumeNext& step, const std::string& phrase) {
    // The 1 is the blank behind the phrase. Where the document has become shorter than that the
    // length is negative, so this step fails and the document stays.
    step([&] {
        const std::string& text = pad_->txtSpeech.Text();
        pad_->txtSpeech.SetText(Left(text, Len(text) - Len(phrase) - 1));
    });
    step([&] { pad_->txtSpeech.SetSelStart(Len(pad_->txtSpeech.Text())); });
}

void PadText::Clear(const ResumeNext& step) {
    step([&] { pad_->txtSpeech.SetText(""); });
}

// The words are written into the document behind what has just been printed, deliberately.
IDictationTarget::Words PadText::PrintPage(const ResumeNext& step) {
    step([&] { pad_->Command4_Click(); });
    return Words::AreTextToo;
}

}  // namespace corvane
