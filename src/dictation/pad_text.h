// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "dictation/dictation_target.h"
#include "dictation/form5.h"
#include "platform/language_runtime.h"
#include "runtime/forms/form.h"

namespace corvane {

/// Dictation into the pad's document. Text goes in at the caret; what is taken out is taken from
/// the end, wherever the caret is: the two agree only while nobody types.
class PadText final : public IDictationTarget {
public:
    PadText(ILanguageRuntime& runtime, forms::Lazy<Form5>& pad);

    void Begin() override {}
    void Write(const ResumeNext& step, const std::string& text) override;
    void BreakLine(const ResumeNext& step) override;
    void Backspace(const ResumeNext& step) override;
    void Scratch(const ResumeNext& step, const std::string& phrase) override;
    void Clear(const ResumeNext& step) override;
    Words PrintPage(const ResumeNext& step) override;

private:
    ILanguageRuntime& runtime_;
    forms::Lazy<Form5>& pad_;
};

}  // namespace corvane
