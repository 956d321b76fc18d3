// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "speech/speaker.h"

#include "runtime/dates.h"
#include "speech/sentences.h"

namespace corvane {
namespace {

constexpr std::int32_t kReadingInterests = SVEAudioLevel + SVEWordBoundary + SVEEndInputStream;
static_assert(kReadingInterests == 548);

constexpr std::int32_t kGoodbyeMilliseconds = 1000;

}  // namespace

Speaker::Speaker(Nullable<ISpeechVoice>& voice, forms::Lazy<Form2>& main_window,
                 ILanguageRuntime& runtime, IClipboard& clipboard)
    : voice_(voice), main_window_(main_window), runtime_(runtime), clipboard_(clipboard) {}

void Speaker::Speak(std::string_view text) {
    voice_->Speak(std::string(text), SpFlags.rep());
}

void Speaker::SayDate() {
    Speak(DateSentence(FormatDate(runtime_.Now(), runtime_.LocaleDateNames())));
}

void Speaker::SayTime() {
    Speak(TimeSentence(FormatTime(runtime_.Now(), runtime_.LocaleDateNames())));
}

void Speaker::SayFreeSpace(const std::string& drive, Long percent) {
    Speak(FreeSpaceSentence(drive, percent));
}

void Speaker::SayMemory(Long megabytes) {
    Speak(MemorySentence(megabytes));
}

void Speaker::SayGoodbye(const ResumeNext& step) {
    step([&] { Speak(kGoodbye); });
    step([&] { voice_->WaitUntilDone(kGoodbyeMilliseconds); });
}

void Speaker::Command2_Click() {
    voice_->SetEventInterests(kReadingInterests);
    Speak(main_window_->Text3.Text());
}

void Speaker::ReadWhiteboard(const ResumeNext& step) {
    step([&] { voice_->SetEventInterests(kReadingInterests); });
    step([&] { Speak(main_window_->Text3.Text()); });
}

void Speaker::ReadAll(const ResumeNext& step) {
    step([&] { runtime_.SendKeys("^a", true); });
    step([&] { runtime_.SendKeys("^c", true); });
    step([&] { main_window_->Text3.SetText(clipboard_.GetText()); });
    ReadWhiteboard(step);
}

void Speaker::ReadSelected(const ResumeNext& step) {
    std::uint32_t before = 0;
    step([&] { before = clipboard_.SequenceNumber(); });
    step([&] { runtime_.SendKeys("^c", true); });
    // With nothing highlighted a program copies nothing, and what was on the clipboard before is
    // not what was asked for; it may be something that nobody else should hear.
    if (step.test([&] { return clipboard_.SequenceNumber() == before; }))
        step([&] { main_window_->Text3.SetText(""); });
    else
        step([&] { main_window_->Text3.SetText(clipboard_.GetText()); });
    ReadWhiteboard(step);
}

}  // namespace corvane
