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
      grammar_(platform.files, paths_),
      recogniser_(platform.speech, voice_),
      form1_([this] { return CreateForm1(); }),
      form2_([this] { return CreateForm2(); }),
      form3_([this] { return CreateForm3(); }),
      form4_([this] { return CreateForm4(); }),
      form5_([this] { return CreateForm5(); }),
      printer_(platform.printer, platform.gdi32, platform.user32),
      pad_log_(form5_),
      training_(recogniser_, platform.runtime, form5_),
      dictation_(platform.runtime, paths_, recogniser_, form2_, form5_, pad_log_, training_),
      speaker_(voice_, form2_, platform.runtime, platform.clipboard),
      voice_feedback_(voice_, form2_),
      command_help_(form2_, [this](const std::string& sentence) { speaker_.Speak(sentence); }),
      tray_(platform.shell32, form2_),
      help_page_(platform.automation, platform.runtime),
      log_(form2_),
      launcher_(keywords_, platform.runtime),
      desktop_(platform, loop_, form1_, form2_, SpokenAnswers()),
      status_monitor_(platform.runtime, platform.kernel32, platform.wininet, desktop_.system,
                      form2_),
      dispatch_(platform.runtime, paths_, recogniser_, voice_, speaker_, launcher_, form2_, tray_,
                log_, keywords_, form1_, form3_, desktop_, dictation_),
      feedback_(recogniser_, form2_, log_, pad_log_),
      registry_(platform.advapi32, platform.runtime),
      startup_(loop_, platform.runtime, platform.speech, paths_, keywords_, recogniser_, voice_,
               speaker_, registry_, form2_, form4_, form5_) {
    BindRecogniser();
    BindVoice();
}

void Application::Run() {
    loop_.Enter([this] { startup_.Main(); });
    loop_.Run();
}

std::shared_ptr<Form1> Application::CreateForm1() {
    auto form = std::make_shared<Form1>(
        platform_.windows, loop_,
        Form1::Parts{platform_.runtime, platform_.files, paths_, keywords_, grammar_,
                     [this](const std::string& file) { recogniser_.init_rec(file); }});
    form->Closed = [this] { form1_.LetGo(); };
    return form;
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
    form->List1.DblClick = [this] { command_help_.List1_DblClick(); };
    form->Timer1.Tick = [this] { status_monitor_.Timer1_Timer(); };
    form->Command2.Click = [this] { speaker_.Command2_Click(); };
    return form;
}

std::shared_ptr<Form3> Application::CreateForm3() {
    auto form = std::make_shared<Form3>(platform_.windows, loop_, platform_.speech);
    form->CalendarGrammarFile = paths_.CalendarXmlPath;
    form->Closed = [this] { form3_.LetGo(); };
    return form;
}

std::shared_ptr<Form4> Application::CreateForm4() {
    auto form = std::make_shared<Form4>(platform_.windows, loop_);
    form->Timer1.Tick = [this] { startup_.Form4_Timer1_Timer(); };
    return form;
}

SystemCommands::Answers Application::SpokenAnswers() {
    return {.SayFreeSpace = [this](const std::string& drive,
                                   Long percent) { speaker_.SayFreeSpace(drive, percent); },
            .SayMemory = [this](Long megabytes) { speaker_.SayMemory(megabytes); }};
}

std::shared_ptr<Form5> Application::CreateForm5() {
    auto form = std::make_shared<Form5>(platform_.windows, loop_, printer_, PadActive_);
    // Closed in any way, the pad gives the recogniser back to the commands.
    form->Unload = [this] { recogniser_.init_rec(paths_.KeywordsXmlPath); };
    form->Command1.Click = [this] { training_.train(training_.AskForSentence()); };
    form->add_Word2 = [this](const std::string& myword) { training_.add_Word2(myword); };
    form->Closed = [this] { form5_.LetGo(); };
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

void Application::BindVoice() {
    SpeechVoiceHandlers& events = startup_.VoiceEvents;
    events.AudioLevel = [this](std::int32_t number, const Variant& position, std::int32_t level) {
        voice_feedback_.voice_AudioLevel(number, position, level);
    };
    events.EndStream = [this](std::int32_t number, const Variant& position) {
        voice_feedback_.voice_EndStream(number, position);
    };
    events.Word = [this](std::int32_t number, const Variant& position, std::int32_t character,
                         std::int32_t length) {
        voice_feedback_.voice_Word(number, position, character, length);
    };
}

}  // namespace corvane
