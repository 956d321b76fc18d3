// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recognition_dispatch.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/recognition_line.h"
#include "runtime/failure.h"

namespace corvane {

/// What each grammar rule does, in the order in which a phrase's rule is compared. Rules that users
/// add are in no row; their words are found in the phrase afterwards.
struct RuleTable {
    using Dispatch = const RecognitionDispatch;
    struct Row {
        std::string_view RuleName;
        void (*act)(Dispatch& self);
    };

    static constexpr std::array kRows = std::to_array<Row>({
        {"copy", [](Dispatch& self) { self.runtime_.SendKeys("^c", true); }},
        {"paste", [](Dispatch& self) { self.runtime_.SendKeys("^v", true); }},
        {"yes", [](Dispatch& self) { self.runtime_.SendKeys("y", true); }},
        {"no", [](Dispatch& self) { self.runtime_.SendKeys("n", true); }},
        {"cancel", [](Dispatch& self) { self.runtime_.SendKeys("{ESC}", true); }},
        {"okay", [](Dispatch& self) { self.runtime_.SendKeys("{ENTER}", true); }},
        {"clean whiteboard", [](Dispatch& self) { self.main_window_->Text3.SetText(""); }},
        {"disable", [](Dispatch& self) { self.recogniser_.init_rec(self.paths_.QuietXmlPath); }},
        {"reenable",
         [](Dispatch& self) { self.recogniser_.init_rec(self.paths_.KeywordsXmlPath); }},
    });

    [[nodiscard]] static const Row* Find(std::string_view RuleName) {
        const auto* row = std::ranges::find(kRows, RuleName, &Row::RuleName);
        return row == kRows.end() ? nullptr : row;
    }
};

RecognitionDispatch::RecognitionDispatch(ILanguageRuntime& runtime, const DataPaths& paths,
                                         Recogniser& recogniser, Nullable<ISpeechVoice>& voice,
                                         const KeywordLauncher& launcher,
                                         forms::Lazy<Form2>& main_window, TextLog& log)
    : runtime_(runtime),
      paths_(paths),
      recogniser_(recogniser),
      voice_(voice),
      launcher_(launcher),
      main_window_(main_window),
      log_(log) {}

void RecognitionDispatch::RC_Recognition(Long StreamNumber, const Variant& StreamPosition,
                                         Long /*RecognitionType*/, ISpeechRecoResult& Result) {
    ResumeNext step;
    std::string PhraseText;
    std::string RuleName;
    step([&] { PhraseText = Result.PhraseInfo()->GetText(0, -1, true); });
    step([&] { RuleName = Result.PhraseInfo()->Rule()->Name(); });

    // Only high confidence passes; one that can't be read counts as too low.
    if (step.test([&] { return Result.PhraseInfo()->Rule()->Confidence() < SECHighConfidence; })) {
        step([&] {
            log_.Append(RecognitionLine(StreamNumber, StreamPosition, Result, kThrownOut));
        });
        step([&] { Result.DiscardResultInfo(SDTAll); });
        return;
    }
    step([&] { log_.Append(RecognitionLine(StreamNumber, StreamPosition, Result)); });
    // A command ends the marking of words that a reading had switched on.
    step([&] { voice_->SetEventInterests(SVEAudioLevel); });

    if (const auto* row = RuleTable::Find(RuleName)) step([&] { row->act(*this); });

    // After every row, by the text and not by the rule.
    launcher_.RunKeywordsIn(PhraseText, step);
}

}  // namespace corvane
