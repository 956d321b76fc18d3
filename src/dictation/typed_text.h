// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "dictation/dictation_target.h"
#include "platform/language_runtime.h"
#include "runtime/numbers.h"

namespace corvane {

/// Dictation into whatever window has the focus, by keys. What that window holds is not known, so
/// only what was typed into it can be taken back.
class TypedText final : public IDictationTarget {
public:
    explicit TypedText(ILanguageRuntime& runtime);

    void Begin() override;
    void Write(const ResumeNext& step, const std::string& text) override;
    void BreakLine(const ResumeNext& step) override;
    void Backspace(const ResumeNext& step) override;
    void Scratch(const ResumeNext& step, const std::string& phrase) override;
    /// Takes back what was dictated since Begin, and no more: the rest of the document is not ours.
    void Clear(const ResumeNext& step) override;
    /// Asks the program that has the focus to print.
    Words PrintPage(const ResumeNext& step) override;

private:
    void TakeBack(const ResumeNext& step, Long characters);

    ILanguageRuntime& runtime_;
    Long typed_;  // characters since Begin that still stand
};

/// The keys that type just that text: what means something in key notation stands in braces.
[[nodiscard]] std::string KeysOf(std::string_view text);

}  // namespace corvane
