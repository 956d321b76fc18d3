// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/recogniser.h"
#include "dictation/form5.h"
#include "grammar/data_paths.h"
#include "grammar/keyword_store.h"
#include "platform/language_runtime.h"
#include "platform/speech_api.h"
#include "runtime/forms/form.h"
#include "runtime/message_loop.h"
#include "runtime/nullable.h"
#include "shell/form2.h"
#include "shell/form4.h"
#include "shell/reg_api.h"
#include "speech/speaker.h"

namespace corvane {

/// Brings the system up: the splash for five seconds, then the main window, whose load is the whole
/// initialisation. No step of it passes over an error.
class Startup {
public:
    Startup(MessageLoop& loop, const ILanguageRuntime& runtime, ISpeechApi& speech,
            DataPaths& paths, KeywordStore& keywords, Recogniser& recogniser,
            Nullable<ISpeechVoice>& voice, Speaker& speaker, RegAPI& registry,
            forms::Lazy<Form2>& main_window, forms::Lazy<Form4>& splash, forms::Lazy<Form5>& pad);

    /// Where the voice's events go, from its creation in the main window's load on.
    SpeechVoiceHandlers VoiceEvents;

    /// The process entry: shows the splash and returns.
    void Main();

    /// Handlers of the two windows.
    void Form4_Timer1_Timer();
    void Form2_Load();

private:
    void TrainAtFirstRun();

    MessageLoop& loop_;
    const ILanguageRuntime& runtime_;
    ISpeechApi& speech_;
    DataPaths& paths_;
    KeywordStore& keywords_;
    Recogniser& recogniser_;
    Nullable<ISpeechVoice>& voice_;
    Speaker& speaker_;
    RegAPI& registry_;
    forms::Lazy<Form2>& form2_;
    forms::Lazy<Form4>& form4_;
    forms::Lazy<Form5>& form5_;
};

}  // namespace corvane
