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

private:
    Recogniser& recogniser_;
    ILanguageRuntime& runtime_;
    forms::Lazy<Form5>& pad_;
};

}  // namespace corvane
