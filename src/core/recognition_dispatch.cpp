// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recognition_dispatch.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/recognition_line.h"
#include "runtime/failure.h"
#include "speech/sentences.h"

namespace corvane {

/// What each grammar rule does, in the order in which a phrase's rule is compared. Rules that users
/// add are in no row; their words are found in the phrase afterwards.
struct RuleTable {
    using Dispatch = const RecognitionDispatch;
    struct Row {
        std::string_view RuleName;
        void (*act)(Dispatch& self, const ResumeNext& step);
    };

    static void Type(Dispatch& self, const ResumeNext& step, const char* keys) {
        step([&] { self.runtime_.SendKeys(keys, true); });
    }

    // The lists are those of the file as it is; what the person then changes reaches them from
    // there.
    static void ShowAddPrograms(Dispatch& self, const ResumeNext& step) {
        KeywordStore& keywords = self.keywords_;
        step([&] { self.add_programs_->Show(); });
        step([&] { self.recogniser_.init_rec(self.paths_.KeywordsXmlPath); });
        step([&] { keywords.KeywordNames = keywords.LoadKeywordNames(); });
        step([&] { keywords.KeywordPaths = keywords.LoadKeywordPaths(); });
    }

    static constexpr std::array kRows = std::to_array<Row>({
        {"dictation notepad", [](auto& self, auto& step) { self.dictation_.StartInPad(step); }},
        {"dictate", [](auto& self, auto& step) { self.dictation_.StartInFocusedWindow(step); }},
        {"hide corvane", [](auto& self, auto& step) { step([&] { self.tray_.HideToTray(); }); }},
        {"show corvane", [](auto& self, auto& step) { step([&] { self.tray_.ShowFromTray(); }); }},
        {"copy", [](auto& self, auto& step) { Type(self, step, "^c"); }},
        {"paste", [](auto& self, auto& step) { Type(self, step, "^v"); }},
        {"yes", [](auto& self, auto& step) { Type(self, step, "y"); }},
        {"no", [](auto& self, auto& step) { Type(self, step, "n"); }},
        {"cancel", [](auto& self, auto& step) { Type(self, step, "{ESC}"); }},
        {"okay", [](auto& self, auto& step) { Type(self, step, "{ENTER}"); }},
        {"add programs", ShowAddPrograms},
        {"calendar", [](auto& self, auto& step) { step([&] { self.calendar_->Show(); }); }},
        {"the date", [](auto& self, auto& step) { step([&] { self.speaker_.SayDate(); }); }},
        {"the time", [](auto& self, auto& step) { step([&] { self.speaker_.SayTime(); }); }},
        {"clean whiteboard",
         [](auto& self, auto& step) { step([&] { self.main_window_->Text3.SetText(""); }); }},
        {"read whiteboard", [](auto& self, auto& step) { self.speaker_.ReadWhiteboard(step); }},
        {"read selected", [](auto& self, auto& step) { self.speaker_.ReadSelected(step); }},
        {"read all", [](auto& self, auto& step) { self.speaker_.ReadAll(step); }},
        {"close corvane",
         [](auto& self, auto& step) {
             self.speaker_.SayGoodbye(step);
             self.runtime_.End();
         }},
        {"you there",
         [](auto& self, auto& step) { step([&] { self.speaker_.Speak(kPresence); }); }},
        {"disable",
         [](auto& self, auto& step) {
             step([&] { self.recogniser_.init_rec(self.paths_.QuietXmlPath); });
         }},
        {"reenable",
         [](auto& self, auto& step) {
             step([&] { self.recogniser_.init_rec(self.paths_.KeywordsXmlPath); });
         }},
    });

    [[nodiscard]] static const Row* Find(std::string_view RuleName) {
        const auto* row = std::ranges::find(kRows, RuleName, &Row::RuleName);
        return row == kRows.end() ? nullptr : row;
    }
};

RecognitionDispatch::RecognitionDispatch(ILanguageRuntime& runtime, const DataPaths& paths,
                                         Recogniser& recogniser, Nullable<ISpeechVoice>& voice,
                                         Speaker& speaker, const KeywordLauncher& launcher,
                                         forms::Lazy<Form2>& main_window, TrayIcon& tray,
                                         TextLog& log, KeywordStore& keywords,
                                         forms::Lazy<Form1>& add_programs,
                                         forms::Lazy<Form3>& calendar, DictationMode& dictation)
    : runtime_(runtime),
      paths_(paths),
      recogniser_(recogniser),
      voice_(voice),
      speaker_(speaker),
      launcher_(launcher),
      main_window_(main_window),
      tray_(tray),
      log_(log),
      keywords_(keywords),
      add_programs_(add_programs),
      calendar_(calendar),
      dictation_(dictation) {}

void RecognitionDispatch::RC_Recognition(Long StreamNumber, const Variant& StreamPosition,
                                         Long /*RecognitionType*/, ISpeechRecoResult& Result) {
    ResumeNext step;
    std::string PhraseText;
    std::string RuleName;
    step([&] { PhraseText = Result.PhraseInfo()->GetText(0, -1, true); });
    step([&] { RuleName = Result.PhraseInfo()->Rule()->Name(); });

    // While dictating neither rule nor confidence nor keywords count.
    if (recogniser_.DictationActive)
        return dictation_.HandlePhrase(step, PhraseText, [&] {
            return ResultLine(StreamNumber, StreamPosition, "Recognition", Result);
        });

    // Only high confidence passes; one that can't be read counts as too low.
    if (step.test([&] { return Result.PhraseInfo()->Rule()->Confidence() < SECHighConfidence; })) {
        step([&] {
            log_.Append(
                ResultLine(StreamNumber, StreamPosition, "Recognition", Result, kThrownOut));
        });
        step([&] { Result.DiscardResultInfo(SDTAll); });
        return;
    }
    step([&] { log_.Append(ResultLine(StreamNumber, StreamPosition, "Recognition", Result)); });
    // A command ends the marking of words that a reading had switched on.
    step([&] { voice_->SetEventInterests(SVEAudioLevel); });

    if (const auto* row = RuleTable::Find(RuleName)) row->act(*this, step);

    // After every row, by the text and not by the rule.
    launcher_.RunKeywordsIn(PhraseText, step);
}

}  // namespace corvane
