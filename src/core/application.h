// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "calendar/form3.h"
#include "core/dictation_mode.h"
#include "core/recogniser.h"
#include "core/recognition_dispatch.h"
#include "core/recognition_feedback.h"
#include "core/startup.h"
#include "core/text_log.h"
#include "desktop/desktop_commands.h"
#include "desktop/keyword_launcher.h"
#include "desktop/status_monitor.h"
#include "dictation/form5.h"
#include "dictation/pad_log.h"
#include "dictation/rich_text_printer.h"
#include "dictation/training.h"
#include "grammar/command_grammar.h"
#include "grammar/data_paths.h"
#include "grammar/form1.h"
#include "grammar/keyword_store.h"
#include "platform/platform.h"
#include "runtime/forms/form.h"
#include "runtime/message_loop.h"
#include "shell/command_help.h"
#include "shell/form2.h"
#include "shell/form4.h"
#include "shell/help_page.h"
#include "shell/reg_api.h"
#include "shell/tray_icon.h"
#include "speech/speaker.h"
#include "speech/voice_feedback.h"

namespace corvane {

/// The whole system on one platform: builds its parts and binds them to each other.
class Application {
public:
    explicit Application(const Platform& platform);

    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// Brings the system up and runs it until the process ends.
    void Run();

private:
    [[nodiscard]] std::shared_ptr<Form1> CreateForm1();
    [[nodiscard]] std::shared_ptr<Form2> CreateForm2();
    [[nodiscard]] std::shared_ptr<Form3> CreateForm3();
    [[nodiscard]] std::shared_ptr<Form4> CreateForm4();
    [[nodiscard]] SystemCommands::Answers SpokenAnswers();
    [[nodiscard]] std::shared_ptr<Form5> CreateForm5();
    void BindRecogniser();
    void BindVoice();

    Platform platform_;
    MessageLoop loop_;
    DataPaths paths_;
    Nullable<ISpeechVoice> voice_;
    KeywordStore keywords_;
    CommandGrammar grammar_;
    Recogniser recogniser_;
    forms::Lazy<Form1> form1_;
    forms::Lazy<Form2> form2_;
    forms::Lazy<Form3> form3_;
    forms::Lazy<Form4> form4_;
    forms::Lazy<Form5> form5_;
    bool PadActive_ = false;
    RichTextPrinter printer_;
    PadLog pad_log_;
    Training training_;
    DictationMode dictation_;
    Speaker speaker_;
    VoiceFeedback voice_feedback_;
    CommandHelp command_help_;
    TrayIcon tray_;
    HelpPage help_page_;
    TextLog log_;
    KeywordLauncher launcher_;
    DesktopCommands desktop_;
    StatusMonitor status_monitor_;
    RecognitionDispatch dispatch_;
    RecognitionFeedback feedback_;
    RegAPI registry_;
    Startup startup_;
};

}  // namespace corvane
