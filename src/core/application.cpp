// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/application.h"

#include "platform/advapi32.h"
#include "platform/automation.h"
#include "platform/controls.h"
#include "platform/language_runtime.h"
#include "platform/shell32.h"
#include "platform/speech_api.h"

namespace corvane {

Application::Application(const Platform& platform)
    : platform_(platform),
      loop_(platform.messages, platform.runtime),
      keywords_(platform.files, paths_),
      recogniser_(platform.speech, voice_),
      form2_([this] { return CreateForm2(); }),
      form4_([this] { return CreateForm4(); }),
      speaker_(voice_, form2_),
      tray_(platform.shell32, form2_),
      help_page_(platform.automation, platform.runtime),
      log_(form2_),
      launcher_(keywords_, platform.runtime),
      system_(platform.kernel32, loop_),
      status_monitor_(platform.runtime, platform.kernel32, platform.wininet, system_, form2_),
      dispatch_(platform.runtime, paths_, recogniser_, voice_, speaker_, launcher_, form2_, tray_,
                log_),
      feedback_(recogniser_, form2_, log_),
      startup_(loop_, platform.runtime, platform.speech, paths_, keywords_, recogniser_, voice_,
               speaker_, form2_, form4_) {
    BindRecogniser();
}

void Application::Run() {
    loop_.Enter([this] { startup_.Main(); });
    loop_.Run();
}

std::shared_ptr<Form2> Application::CreateForm2() {
    auto form = std::make_shared<Form2>(platform_.windows, loop_, platform_.runtime,
                                         platform_.gdi32, platform_.user32);
    form->Load = [this] { startup_.Form2_Load(); };
    // Every way out is an immediate end: nothing is unloaded, an icon in the tray stays behind.
    form->Unload = [this] { platform_.runtime.End(); };
    form->mnuExit.Click = [this] { platform_.runtime.End(); };
    form->mnuHDoc.Click = [this] { help_page_.Open(); };
    form->mnuAbout.Click = [this] { form4_->ShowModal(); };
    form->Timer1.Tick = [this] { status_monitor_.Timer1_Timer(); };
    form->Command2.Click = [this] { speaker_.ReadWhiteboard(); };
    return form;
}

std::shared_ptr<Form4> Application::CreateForm4() {
    auto form = std::make_shared<Form4>(platform_.windows, loop_);
    form->Timer1.Tick = [this] { startup_.Form4_Timer1_Timer(); };
    return form;
}

void Application::BindRecogniser() {
    using Result = std::shared_ptr<ISpeechRecoResult>;
    SpeechRecoContextEvents& events = recogniser_.Events;
    events.Recognition = [this](std::int32_t number, const Variant& position, std::int32_t type,
                                const Result& result) {
        dispatch_.RC_Recognition(number, position, type, *result);
    };
    events.Hypothesis = [this](std::int32_t number, const Variant& position, const Result& result) {
        feedback_.RC_Hypothesis(number, position, *result);
    };
    events.AudioLevel = [this](std::int32_t number, const Variant& position, std::int32_t level) {
        feedback_.RC_AudioLevel(number, position, level);
    };
    events.Interference = [this](std::int32_t number, const Variant& position,
                                 std::int32_t interference) {
        feedback_.RC_Interference(number, position, interference);
    };
    events.Adaptation = [this](std::int32_t number, const Variant& position) {
        feedback_.rc_Adaptation(number, position);
    };
}

}  // namespace corvane
