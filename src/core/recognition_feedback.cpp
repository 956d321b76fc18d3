// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/recognition_feedback.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "core/recognition_line.h"
#include "runtime/text.h"

namespace corvane {
namespace {

struct InterferenceMessage {
    std::int32_t interference;
    std::string_view message;
};

constexpr auto kInterference = std::to_array<InterferenceMessage>({
    {SINone, "None"},
    {SINoise, "Noise interference detected"},
    {SINoSignal, "No signal detected"},
    {SITooLoud, "Speaking too loud"},
    {SITooQuiet, "Speaking too quietly"},
    {SITooFast, "Speaking too fast"},
    {SITooSlow, "Speaking too slow"},
});

}  // namespace

RecognitionFeedback::RecognitionFeedback(Recogniser& recogniser, forms::Lazy<Form2>& main_window,
                                         TextLog& log, PadLog& pad_log)
    : recogniser_(recogniser), main_window_(main_window), log_(log), pad_log_(pad_log) {}

void RecognitionFeedback::rc_Adaptation(Long /*StreamNumber*/, const Variant& /*StreamPosition*/) {
    recogniser_.RestoreInterests();
}

void RecognitionFeedback::RC_AudioLevel(Long /*StreamNumber*/, const Variant& /*StreamPosition*/,
                                        Long AudioLevel) {
    main_window_->text2.SetText(CStr(AudioLevel));
    main_window_->ProgressBar1.SetValue(AudioLevel);
}

void RecognitionFeedback::RC_Hypothesis(Long StreamNumber, const Variant& StreamPosition,
                                        ISpeechRecoResult& Result) {
    const auto line = [&](std::string_view suffix) {
        return ResultLine(StreamNumber, StreamPosition, "Hypothesis", Result, suffix);
    };
    if (recogniser_.DictationActive) pad_log_.Append(line(""));
    if (recogniser_.HypothesisTrace) log_.Append(line(""));
    if (recogniser_.DictationActive || recogniser_.HypothesisTrace) return;

    if (Result.PhraseInfo()->Rule()->Confidence() < SECHighConfidence) {
        log_.Append(line(kHypothesisIgnored));
        Result.DiscardResultInfo(SDTAll);
    } else {
        log_.Append(line(""));
    }
}

void RecognitionFeedback::RC_Interference(Long /*StreamNumber*/, const Variant& /*StreamPosition*/,
                                          Long Interference) {
    const auto row =
        std::ranges::find(kInterference, Interference.rep(), &InterferenceMessage::interference);
    if (row != kInterference.end()) log_.Append(std::string(row->message) + std::string(kCrLf));
}

}  // namespace corvane
