// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "speech/speaker.h"

namespace corvane {
namespace {

constexpr std::int32_t kReadingInterests = SVEAudioLevel + SVEWordBoundary + SVEEndInputStream;
static_assert(kReadingInterests == 548);

constexpr std::int32_t kGoodbyeMilliseconds = 1000;

}  // namespace

Speaker::Speaker(Nullable<ISpeechVoice>& voice, forms::Lazy<Form2>& main_window)
    : voice_(voice), main_window_(main_window) {}

void Speaker::Speak(const std::string& text) {
    voice_->Speak(text, SpFlags.rep());
}

void Speaker::ReadWhiteboard() {
    voice_->SetEventInterests(kReadingInterests);
    Speak(main_window_->Text3.Text());
}

void Speaker::SayGoodbye(const ResumeNext& step) {
    step([&] { Speak("<emph>goodbye</emph> "); });
    step([&] { voice_->WaitUntilDone(kGoodbyeMilliseconds); });
}

}  // namespace corvane
