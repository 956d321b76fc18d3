// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form4.h"

namespace corvane {
namespace {

constexpr WindowDescription kForm4{.name = "Form4",
                                   .caption = "About KT Corvane 3.0",
                                   .client_width = 5430,
                                   .client_height = 3195,
                                   .controls = kForm4Controls,
                                   .position = StartPosition::CentreOfScreen,
                                   .white_background = true};

}  // namespace

Form4::Form4(IWindowToolkit& toolkit, MessageLoop& loop) : Form(toolkit, loop, kForm4) {
    Load = [this] { Form_Load(); };
    Command1.Click = [this] { Command1_Click(); };
}

void Form4::Form_Load() {
    SplashTicks = 0;
    Label1.SetCaption("KT Corvane 3.0");
}

// Hidden, not unloaded: the next time it is shown as it stands.
void Form4::Command1_Click() {
    Hide();
}

}  // namespace corvane
