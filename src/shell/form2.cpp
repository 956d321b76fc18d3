// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form2.h"

#include "runtime/text.h"

namespace corvane {
namespace {

constexpr WindowDescription kForm2{.name = "Form2",
                                   .caption = "KT Corvane 3.0",
                                   .client_width = 9360,
                                   .client_height = 6420,
                                   .controls = kForm2Controls};

}  // namespace

Form2::Form2(IWindowToolkit& toolkit, MessageLoop& loop) : Form(toolkit, loop, kForm2) {
    Text1.Change = [this] { Text1_Change(); };
}

void Form2::Text1_Change() {
    // In front of the last character: a control follows its caret, so the newest line stays in
    // view.
    Text1.SetSelStart(Len(Text1.Text()) - 1);
}

}  // namespace corvane
