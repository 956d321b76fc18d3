// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "runtime/failure.h"

namespace corvane {

/// Where dictated text goes, and what the phrases that edit it do there. Each operation takes its
/// steps under the regime of its caller.
class IDictationTarget {
public:
    enum class Words { Spent, AreTextToo };

    virtual ~IDictationTarget() = default;

    /// Dictation into this target begins.
    virtual void Begin() = 0;

    /// Writes a phrase, the blank behind it included.
    virtual void Write(const ResumeNext& step, const std::string& text) = 0;
    virtual void BreakLine(const ResumeNext& step) = 0;
    /// Strikes one Backspace, wherever the focus is.
    virtual void Backspace(const ResumeNext& step) = 0;
    /// Takes out the phrase that was written last, and the blank behind it.
    virtual void Scratch(const ResumeNext& step, const std::string& phrase) = 0;
    virtual void Clear(const ResumeNext& step) = 0;
    /// Prints; whether the words that asked for it are written as well.
    virtual Words PrintPage(const ResumeNext& step) = 0;
};

}  // namespace corvane
