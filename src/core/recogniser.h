// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "platform/speech_api.h"
#include "runtime/nullable.h"

namespace corvane {

/// The system's connection to the speech engine: one context with one grammar. What it listens for
/// is changed in one way only, by a new context in place of the old one.
class Recogniser {
public:
    /// `voice` may be empty at any time and must outlive this object.
    Recogniser(ISpeechApi& speech, Nullable<ISpeechVoice>& voice);

    Recogniser(const Recogniser&) = delete;
    Recogniser& operator=(const Recogniser&) = delete;

    /// Handlers that every new context is connected to.
    SpeechRecoContextEvents Events;

    bool DictationActive = false;
    bool HypothesisTrace = false;

    /// Listens for the commands of the grammar file at that full path from now on. Never raises:
    /// with a file that can't be loaded the system is awake and hears no command.
    void init_rec(const std::string& myxfile);

    /// Listens for free text from now on in place of the commands. Raises without a context, and
    /// when the engine refuses; nothing is put back then.
    void StartDictation();
    /// Drops the dictation. Raises when there is none.
    void DictationUnload();
    /// Lets go of the grammar and then of the context; nothing is heard until the next init_rec.
    void ReleaseRecognizer();

    /// The context in use; its use between ReleaseRecognizer and init_rec raises.
    [[nodiscard]] const Nullable<ISpeechRecoContext>& rc() const { return rc_; }

    /// Asks for the events of every day again, after more were asked for. Raises without a context.
    void RestoreInterests();

private:
    void Disconnect();
    void ReplaceContext(std::shared_ptr<ISpeechRecoContext> context);

    ISpeechApi& speech_;
    Nullable<ISpeechVoice>& voice_;
    Nullable<ISpeechRecoContext> rc_;
    Nullable<ISpeechRecoGrammar> Grammar_;
    Nullable<ISpeechGrammarRules> GrammarRules_;
};

}  // namespace corvane
