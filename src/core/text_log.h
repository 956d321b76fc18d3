// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "runtime/forms/form.h"
#include "shell/form2.h"

namespace corvane {

/// The running record of what was heard, in the main window's Text1. It only grows and is not
/// saved.
class TextLog {
public:
    explicit TextLog(forms::Lazy<Form2>& main_window);

    /// Adds a piece of text behind all that is there. The log is one text, read and written back
    /// whole.
    void Append(const std::string& addition);

private:
    forms::Lazy<Form2>& main_window_;
};

}  // namespace corvane
