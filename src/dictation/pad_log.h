// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "dictation/form5.h"
#include "runtime/forms/form.h"

namespace corvane {

/// The record of what was heard while dictating, in the pad's Text1. The first line loads the pad.
class PadLog {
public:
    explicit PadLog(forms::Lazy<Form5>& pad);

    /// Adds a line behind all that is there; the caret stays where it is.
    void Append(const std::string& line);
    void MoveCaretToEnd();

private:
    forms::Lazy<Form5>& pad_;
};

}  // namespace corvane
