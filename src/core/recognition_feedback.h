// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/recogniser.h"
#include "core/text_log.h"
#include "dictation/pad_log.h"
#include "platform/speech_api.h"
#include "runtime/forms/form.h"
#include "runtime/numbers.h"
#include "shell/form2.h"

namespace corvane {

/// Shows what the recogniser is doing: how loud it is, what it thinks it hears, what troubles it.
/// None of these handlers passes over an error.
class RecognitionFeedback {
public:
    RecognitionFeedback(Recogniser& recogniser, forms::Lazy<Form2>& main_window, TextLog& log,
                        PadLog& pad_log);

    void rc_Adaptation(Long StreamNumber, const Variant& StreamPosition);
    /// A level outside 0 to 100 does not fit the bar, which raises.
    void RC_AudioLevel(Long StreamNumber, const Variant& StreamPosition, Long AudioLevel);
    void RC_Hypothesis(Long StreamNumber, const Variant& StreamPosition, ISpeechRecoResult& Result);
    void RC_Interference(Long StreamNumber, const Variant& StreamPosition, Long Interference);

private:
    Recogniser& recogniser_;
    forms::Lazy<Form2>& main_window_;
    TextLog& log_;
    PadLog& pad_log_;
};

}  // namespace corvane
