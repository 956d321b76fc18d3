// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "calendar/form3.h"
#include "core/dictation_mode.h"
#include "core/recogniser.h"
#include "core/text_log.h"
#include "desktop/desktop_commands.h"
#include "desktop/keyword_launcher.h"
#include "grammar/data_paths.h"
#include "grammar/form1.h"
#include "grammar/keyword_store.h"
#include "platform/language_runtime.h"
#include "platform/speech_api.h"
#include "runtime/forms/form.h"
#include "runtime/nullable.h"
#include "shell/form2.h"
#include "shell/tray_icon.h"
#include "speech/speaker.h"

namespace corvane {

/// Turns one recognised phrase into one action. Everything that the voice can make the system do
/// passes through here.
class RecognitionDispatch {
public:
    RecognitionDispatch(ILanguageRuntime& runtime, const DataPaths& paths, Recogniser& recogniser,
                        Nullable<ISpeechVoice>& voice, Speaker& speaker,
                        const KeywordLauncher& launcher, forms::Lazy<Form2>& main_window,
                        TrayIcon& tray, TextLog& log, KeywordStore& keywords,
                        forms::Lazy<Form1>& add_programs, forms::Lazy<Form3>& calendar,
                        DesktopCommands& desktop, DictationMode& dictation);

    /// The handler of the recogniser's final event. It never raises.
    void RC_Recognition(Long StreamNumber, const Variant& StreamPosition, Long RecognitionType,
                        ISpeechRecoResult& Result);

private:
    friend struct RuleTable;

    ILanguageRuntime& runtime_;
    const DataPaths& paths_;
    Recogniser& recogniser_;
    Nullable<ISpeechVoice>& voice_;
    Speaker& speaker_;
    const KeywordLauncher& launcher_;
    forms::Lazy<Form2>& main_window_;
    TrayIcon& tray_;
    TextLog& log_;
    KeywordStore& keywords_;
    forms::Lazy<Form1>& add_programs_;
    forms::Lazy<Form3>& calendar_;
    DesktopCommands& desktop_;
    DictationMode& dictation_;
};

}  // namespace corvane
