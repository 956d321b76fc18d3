// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/training.h"

namespace corvane {

Training::Training(Recogniser& recogniser, ILanguageRuntime& runtime, forms::Lazy<Form5>& pad)
    : recogniser_(recogniser), runtime_(runtime), pad_(pad) {}

std::string Training::AskForSentence() {
    return runtime_.InputBox("Enter a sentence", "Training");
}

void Training::train(const std::string& mystring) {
    const HWND parent = pad_->hWnd();
    // Whether the engine has the dialog is not asked first, deliberately.
    recogniser_.rc()->Recognizer()->DisplayUI(parent, "Corvane --Training", "UserTraining",
                                              mystring);
}

// The word is not handed on, unlike the sentence above: the dialog opens with nothing filled in.
void Training::add_Word2(const std::string& /*myword*/) {
    const HWND parent = pad_->hWnd();
    recogniser_.rc()->Recognizer()->DisplayUI(parent, "Corvane --Add or correct words",
                                              "AddRemoveWord", "");
}

void Training::add_Word() {
    const std::string word =
        runtime_.InputBox("What new word would you like to add?", "Add new word");
    // Added, not set as a bit: asked twice before the engine has reported, the sum is no mask of
    // events any more, until the report puts the usual ones back.
    const Long interests = Long(recogniser_.rc()->EventInterests()) + Long(SREAdaptation);
    recogniser_.rc()->SetEventInterests(interests.rep());
    recogniser_.rc()->SetAdaptationData(word);
}

}  // namespace corvane
