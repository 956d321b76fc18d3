// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/startup.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

constexpr std::int32_t kTicksOfTheSplash = 5;

constexpr std::int32_t kSpFlags = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;
static_assert(kSpFlags == 11);

// An installation leaves "1" there.
constexpr const char* kSettings = "SOFTWARE\\Brindel\\ktcv\\";
constexpr const char* kTrainingDue = "checktraining";

}  // namespace

Startup::Startup(MessageLoop& loop, const ILanguageRuntime& runtime, ISpeechApi& speech,
                 DataPaths& paths, KeywordStore& keywords, Recogniser& recogniser,
                 Nullable<ISpeechVoice>& voice, Speaker& speaker, RegAPI& registry,
                 forms::Lazy<Form2>& main_window, forms::Lazy<Form4>& splash,
                 forms::Lazy<Form5>& pad)
    : loop_(loop),
      runtime_(runtime),
      speech_(speech),
      paths_(paths),
      keywords_(keywords),
      recogniser_(recogniser),
      voice_(voice),
      speaker_(speaker),
      registry_(registry),
      form2_(main_window),
      form4_(splash),
      form5_(pad) {}

void Startup::Main() {
    form4_->Command1.SetVisible(false);
    form4_->SetBorderStyle(BorderStyle::None);
    form4_->Show();
    form4_->Timer1.SetInterval(1000ms);
    form4_->Timer1.SetEnabled(true);
    loop_.DoEvents();
}

void Startup::Form4_Timer1_Timer() {
    loop_.DoEvents();
    form4_->SplashTicks += 1;
    // Equal, not at least: a late tick can't hand over a second time.
    if (form4_->SplashTicks != kTicksOfTheSplash) return;
    form4_->Timer1.SetEnabled(false);
    form4_->Hide();
    form2_->Show();
    // From here on the same window is the about box.
    form4_->Command1.SetVisible(true);
    form4_->SetBorderStyle(BorderStyle::FixedSingle);
}

void Startup::Form2_Load() {
    init_constants(runtime_, paths_);
    recogniser_.HypothesisTrace = false;
    recogniser_.DictationActive = false;
    recogniser_.init_rec(paths_.KeywordsXmlPath);
    if (registry_.ReadRegistryValue(HKEY_LOCAL_MACHINE, kSettings, kTrainingDue) == "1")
        TrainAtFirstRun();
    voice_ = speech_.CreateSpVoice();
    voice_->Advise(VoiceEvents);
    speaker_.SpFlags = kSpFlags;
    keywords_.Reload();
    form2_->CdDoorOpen = false;
    form2_->Picture1.SetPicture(form2_->ImageList1.Picture(1));
}

// Over the pad, which is loaded for it and stays hidden. Events of the recogniser arrive meanwhile,
// when there is no voice and no keyword yet.
void Startup::TrainAtFirstRun() {
    const HWND parent = form5_->hWnd();
    recogniser_.rc()->Recognizer()->DisplayUI(parent, "Corvane --Training", "UserTraining", "");
    // Whether anything was trained or not: it is offered once only.
    registry_.WriteRegistryString(kSettings, kTrainingDue, "0");
}

}  // namespace corvane
