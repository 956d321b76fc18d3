// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "core/recogniser.h"
#include "dictation/dictation_target.h"
#include "dictation/form5.h"
#include "dictation/pad_log.h"
#include "dictation/pad_text.h"
#include "dictation/training.h"
#include "dictation/typed_text.h"
#include "grammar/data_paths.h"
#include "platform/language_runtime.h"
#include "runtime/failure.h"
#include "runtime/forms/form.h"
#include "shell/form2.h"

namespace corvane {

/// While dictation is on, a phrase is text to be written, but for a few that edit it. They are told
/// by their words, since no rule applies. Text goes to the pad or to the window that has the focus,
/// whichever dictation was begun for; what was heard is logged in the pad either way.
class DictationMode {
public:
    DictationMode(ILanguageRuntime& runtime, const DataPaths& paths, Recogniser& recogniser,
                  forms::Lazy<Form2>& main_window, forms::Lazy<Form5>& pad, PadLog& log,
                  Training& training);

    /// The phrase that was written last; empty when there is nothing to undo. A new recogniser
    /// leaves it alone.
    std::string LastPhrase;

    /// Begins dictation, and shows the pad for it.
    void StartInPad(const ResumeNext& step);
    /// Begins dictation into the window that has the focus, whichever that is at each phrase.
    void StartInFocusedWindow(const ResumeNext& step);

    /// Acts on a phrase. `Line` tells the log's line for it, fetched from the result at each call.
    void HandlePhrase(const ResumeNext& step, const std::string& PhraseText,
                      const std::function<std::string()>& Line);

private:
    void Start(const ResumeNext& step, IDictationTarget& target);
    void Train(const ResumeNext& step);
    void Quit(const ResumeNext& step);

    const DataPaths& paths_;
    Recogniser& recogniser_;
    forms::Lazy<Form2>& main_window_;
    forms::Lazy<Form5>& pad_;
    PadLog& log_;
    Training& training_;
    PadText pad_text_;
    TypedText typed_text_;
    IDictationTarget* target_ = &pad_text_;
};

}  // namespace corvane
