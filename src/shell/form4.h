// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls.h"
#include "runtime/forms/controls.h"
#include "runtime/forms/form.h"
#include "runtime/forms/timer.h"
#include "runtime/numbers.h"
#include "shell/form4_layout.h"

namespace corvane {

/// The splash, and later the about box: the same window, first without border and button.
class Form4 final : public forms::Form {
public:
    Form4(IWindowToolkit& toolkit, MessageLoop& loop);

    forms::Fixture Image1{*this, "Image1"};  // product picture
    forms::Label Label1{*this, "Label1"};    // title
    forms::CommandButton Command1{*this, "Command1"};
    forms::Timer Timer1{loop(), std::chrono::milliseconds(1), false};

    Long SplashTicks;

private:
    void Form_Load();
    void Command1_Click();
};

}  // namespace corvane
