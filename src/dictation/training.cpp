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

}  // namespace corvane
