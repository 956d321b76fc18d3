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
    using Text = const std::string;
    struct Row {
        std::string_view RuleName;
        void (*act)(Dispatch& self, const ResumeNext& step, Text& PhraseText);
    };

    static void Type(Dispatch& self, const ResumeNext& step, const char* keys) {
        step([&] { self.runtime_.SendKeys(keys, true); });
    }

    static void ShowForeground(Dispatch& self, const ResumeNext& step, ShowCommand nCmdShow) {
        step([&] { self.desktop_.windows.ShowForegroundWindow(nCmdShow); });
    }

    // The lists are those of the file as it is; what the person then changes reaches them from
    // there.
    static void ShowAddPrograms(Dispatch& self, const ResumeNext& step, Text& /*PhraseText*/) {
        KeywordStore& keywords = self.keywords_;
        step([&] { self.add_programs_->Show(); });
        step([&] { self.recogniser_.init_rec(self.paths_.KeywordsXmlPath); });
        step([&] { keywords.KeywordNames = keywords.LoadKeywordNames(); });
        step([&] { keywords.KeywordPaths = keywords.LoadKeywordPaths(); });
    }

    static void CloseCorvane(Dispatch& self, const ResumeNext& step, Text& /*PhraseText*/) {
        self.speaker_.SayGoodbye(step);
        self.runtime_.End();
    }

    static void AnswerPresence(Dispatch& self, const ResumeNext& step, Text& /*PhraseText*/) {
        step([&] { self.speaker_.Speak(kPresence); });
        step([&] { self.desktop_.windows.ForceForegroundWindow(self.main_window_->hWnd()); });
    }

    static constexpr std::array kRows = std::to_array<Row>({
        {"dictation notepad",
         [](auto& self, auto& step, auto&) { self.dictation_.StartInPad(step); }},
        {"dictate",
         [](auto& self, auto& step, auto&) { self.dictation_.StartInFocusedWindow(step); }},
        {"hide corvane",
         [](auto& self, auto& step, auto&) { step([&] { self.tray_.HideToTray(); }); }},
        {"show corvane",
         [](auto& self, auto& step, auto&) { step([&] { self.tray_.ShowFromTray(); }); }},
        {"copy", [](auto& self, auto& step, auto&) { Type(self, step, "^c"); }},
        {"paste", [](auto& self, auto& step, auto&) { Type(self, step, "^v"); }},
        {"yes", [](auto& self, auto& step, auto&) { Type(self, step, "y"); }},
        {"no", [](auto& self, auto& step, auto&) { Type(self, step, "n"); }},
        {"cancel", [](auto& self, auto& step, auto&) { Type(self, step, "{ESC}"); }},
        {"okay", [](auto& self, auto& step, auto&) { Type(self, step, "{ENTER}"); }},
        {"disconnect from net",
         [](auto& self, auto& step, auto&) { step([&] { self.desktop_.internet.HangUp(); }); }},
        {"connect to net",
         [](auto& self, auto& step,
            auto&) { step([&] { self.desktop_.internet.DialDefaultConnection(); }); }},
        {"how much ram",
         [](auto& self, auto& step, auto&) { step([&] { self.desktop_.system.SayMemory(); }); }},
        {"shutdown", [](auto& self, auto& step, auto&) { self.desktop_.session.Shutdown(step); }},
        {"reboot", [](auto& self, auto& step, auto&) { self.desktop_.session.Reboot(step); }},
        {"free space",
         [](auto& self, auto& step,
            auto& PhraseText) { self.desktop_.system.SayFreeSpace(PhraseText, step); }},
        {"normalize",
         [](auto& self, auto& step, auto&) { ShowForeground(self, step, SW_SHOWNORMAL); }},
        {"maximize",
         [](auto& self, auto& step, auto&) { ShowForeground(self, step, SW_SHOWMAXIMIZED); }},
        // As the window's own button does, so that the next window takes the front. Minimised and
        // still in front, it would be what every further command acts on.
        {"minimize",
         [](auto& self, auto& step, auto&) { ShowForeground(self, step, SW_MINIMIZE); }},
        {"add programs", ShowAddPrograms},
        {"calendar", [](auto& self, auto& step, auto&) { step([&] { self.calendar_->Show(); }); }},
        {"the date", [](auto& self, auto& step, auto&) { step([&] { self.speaker_.SayDate(); }); }},
        {"the time", [](auto& self, auto& step, auto&) { step([&] { self.speaker_.SayTime(); }); }},
        {"clean whiteboard", [](auto& self, auto& step,
                                auto&) { step([&] { self.main_window_->Text3.SetText(""); }); }},
        {"read whiteboard",
         [](auto& self, auto& step, auto&) { self.speaker_.ReadWhiteboard(step); }},
        {"read selected", [](auto& self, auto& step, auto&) { self.speaker_.ReadSelected(step); }},
        {"read all", [](auto& self, auto& step, auto&) { self.speaker_.ReadAll(step); }},
        {"close window",
         [](auto& self, auto& step,
            auto&) { step([&] { self.desktop_.windows.CloseForegroundWindow(); }); }},
        {"close corvane", CloseCorvane},
        {"you there", AnswerPresence},
        {"eject", [](auto& self, auto& step,
                     auto&) { step([&] { self.desktop_.cd_door.ToggleCdDoor(); }); }},
        {"recycle bin",
         [](auto& self, auto& step, auto&) { step([&] { self.desktop_.recycle_bin.Empty(); }); }},
        {"disable",
         [](auto& self, auto& step,
            auto&) { step([&] { self.recogniser_.init_rec(self.paths_.QuietXmlPath); }); }},
        {"reenable",
         [](auto& self, auto& step,
            auto&) { step([&] { self.recogniser_.init_rec(self.paths_.KeywordsXmlPath); }); }},
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
                                         forms::Lazy<Form3>& calendar, DesktopCommands& desktop,
                                         DictationMode& dictation)
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
      desktop_(desktop),
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

    if (const auto* row = RuleTable::Find(RuleName)) row->act(*this, step, PhraseText);

    // After every row, by the text and not by the rule.
    launcher_.RunKeywordsIn(PhraseText, step);
}

}  // namespace corvane
