// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form2.h"

#include "runtime/text.h"
#include "shell/form2_gauges.h"

namespace corvane {
namespace {

constexpr WindowDescription kForm2{.name = "Form2",
                                   .caption = "KT Corvane 3.0",
                                   .client_width = 9360,
                                   .client_height = 6420,
                                   .controls = kForm2Controls};

}  // namespace

Form2::Form2(IWindowToolkit& toolkit, MessageLoop& loop, ILanguageRuntime& runtime, IGdi32& gdi32,
             IUser32& user32)
    : Form(toolkit, loop, kForm2),
      bkCProg1(window().AddControl(Describe("bkCProg1")), gdi32, user32),
      bkCProg2(window().AddControl(Describe("bkCProg2")), gdi32, user32),
      runtime_(runtime) {
    PlaceGauge(bkCProg1, Describe("bkCProg1"), kGauge1);
    PlaceGauge(bkCProg2, Describe("bkCProg2"), kGauge2);
    Text1.Change = [this] { Text1_Change(); };
    Command3.Click = [this] { Command3_Click(); };
    Command2.KeyDown = [this](Integer code, Integer shift) { Command2_KeyDown(code, shift); };
    Command3.KeyDown = [this](Integer code, Integer shift) { Command3_KeyDown(code, shift); };
}

void Form2::Text1_Change() {
    // In front of the last character: a control follows its caret, so the newest line stays in
    // view.
    Text1.SetSelStart(Len(Text1.Text()) - 1);
}

// Empties the whiteboard; the voice reads on.
void Form2::Command3_Click() {
    Text3.SetText("");
}

void Form2::Command2_KeyDown(Integer KeyCode, Integer /*Shift*/) {
    HandKeyToWhiteboard(KeyCode);
}

void Form2::Command3_KeyDown(Integer KeyCode, Integer /*Shift*/) {
    HandKeyToWhiteboard(KeyCode);
}

void Form2::HandKeyToWhiteboard(Integer KeyCode) {
    // The buttons never keep the keyboard. The key's code is taken for the code of a character,
    // deliberately: the down arrow is 40, which is "(", and that is no key.
    Text3.SetFocus();
    runtime_.SendKeys(Chr(KeyCode), false);
}

}  // namespace corvane
