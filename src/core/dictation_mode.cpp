// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/dictation_mode.h"

#include <utility>

#include "runtime/text.h"

namespace corvane {

DictationMode::DictationMode(ILanguageRuntime& runtime, const DataPaths& paths,
                             Recogniser& recogniser, forms::Lazy<Form2>& main_window,
                             forms::Lazy<Form5>& pad, PadLog& log, Training& training)
    : paths_(paths),
      recogniser_(recogniser),
      main_window_(main_window),
      pad_(pad),
      log_(log),
      training_(training),
      pad_text_(runtime, pad),
      typed_text_(runtime) {}

void DictationMode::StartInPad(const ResumeNext& step) {
    Start(step, pad_text_);
    step([&] { pad_->Show(); });
    step([&] { pad_->txtSpeech.SetFocus(); });
}

void DictationMode::StartInFocusedWindow(const ResumeNext& step) {
    Start(step, typed_text_);
}

void DictationMode::HandlePhrase(const ResumeNext& step, const std::string& PhraseText,
                                 const std::function<std::string()>& Line) {
    const std::string phrase = LCase(PhraseText);
    IDictationTarget& target = *target_;
    const auto log_the_phrase = [&] {
        step([&] { log_.Append(Line()); });
        step([&] { log_.MoveCaretToEnd(); });
    };

    if (phrase == "print page") {
        log_the_phrase();
        // In the pad it does not end here: the words are logged again and written as text.
        if (target.PrintPage(step) == IDictationTarget::Words::Spent) return;
    }
    if (phrase == "delete") {
        log_the_phrase();
        return target.Backspace(step);
    }
    if (phrase == "train that") {
        log_the_phrase();
        return Train(step);
    }
    if (phrase == "quit dictation") return Quit(step);
    if (PhraseText == "\r") {
        target.BreakLine(step);
        return log_the_phrase();
    }
    if (phrase == "clear everything") {
        // Forgotten first: keys may let the next phrase in, and that one is to be remembered.
        LastPhrase.clear();
        target.Clear(step);
        return log_the_phrase();
    }
    if (phrase == "scratch that") {
        log_the_phrase();
        if (LastPhrase.empty()) return;
        return target.Scratch(step, std::exchange(LastPhrase, {}));
    }
    log_the_phrase();
    LastPhrase = PhraseText;
    target.Write(step, PhraseText + " ");
}

void DictationMode::Start(const ResumeNext& step, IDictationTarget& target) {
    step([&] { main_window_->ProgressBar1.SetValue(0); });
    step([&] { recogniser_.StartDictation(); });
    recogniser_.DictationActive = true;
    target_ = &target;
    target.Begin();
}

void DictationMode::Train(const ResumeNext& step) {
    std::string sentence;
    step([&] { sentence = training_.AskForSentence(); });
    step([&] { training_.train(sentence); });
}

void DictationMode::Quit(const ResumeNext& step) {
    // The pad's unload has already given the recogniser back to the commands. What follows meets
    // that new one, which dictates nothing, and puts a second in its place, deliberately.
    step([&] {
        if (pad_.Loaded()) pad_->Close();
    });
    step([&] { recogniser_.DictationUnload(); });
    step([&] { recogniser_.ReleaseRecognizer(); });
    step([&] { recogniser_.init_rec(paths_.KeywordsXmlPath); });
}

}  // namespace corvane
