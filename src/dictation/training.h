// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/recogniser.h"
#include "dictation/form5.h"
#include "platform/language_runtime.h"
#include "runtime/forms/form.h"

namespace corvane {

/// What the speech engine offers for knowing its speaker better. Nothing here passes over an error.
class Training {
public:
    Training(Recogniser& recogniser, ILanguageRuntime& runtime, forms::Lazy<Form5>& pad);

    /// Asks a person for the sentence to train with; empty when the person cancels.
    [[nodiscard]] std::string AskForSentence();

    /// Shows the engine's training, with that sentence, over the pad, which is loaded for it and
    /// stays hidden if it was. Returns when the training is closed.
    void train(const std::string& mystring);

    /// Shows the engine's words over the pad, as `train` does, with nothing filled in: `myword` is
    /// not used, deliberately.
    void add_Word2(const std::string& myword);

    /// Asks a person for a new word and gives it to the engine to learn, also when the answer is
    /// empty. Raises kOverflow, and nothing is learned, when the sum of event interests has no room
    /// for one more.
    void add_Word();

private:
    Recogniser& recogniser_;
    ILanguageRuntime& runtime_;
    forms::Lazy<Form5>& pad_;
};

}  // namespace corvane
