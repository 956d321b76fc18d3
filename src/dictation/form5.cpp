// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/form5.h"

namespace corvane {
namespace {

constexpr WindowDescription kForm5{.name = "Form5",
                                   .caption = "Dictation Pad",
                                   .client_width = 5775,
                                   .client_height = 5370,
                                   .controls = kForm5Controls,
                                   .border = BorderStyle::Sizable};

constexpr std::int32_t kOneInch = 1440;

}  // namespace

Form5::Form5(IWindowToolkit& toolkit, MessageLoop& loop, RichTextPrinter& printer, bool& PadActive)
    : Form(toolkit, loop, kForm5), printer_(printer) {
    Load = [&PadActive] { PadActive = true; };
    txtSpeech.GotFocus = [&PadActive] { PadActive = true; };
    txtSpeech.LostFocus = [&PadActive] { PadActive = false; };
    Command2.Click = [this] { Close(); };
}

void Form5::AddBrindel() {
    // The word has no effect: the dialog opens with nothing filled in.
    add_Word2("Brindel");
}

void Form5::Command4_Click() {
    // The pad may be closed while the dialog stands, and let go with it.
    const auto alive = shared_from_this();
    dlgPrint.Flags = kReturnDC + kNoPageNumbers;
    if (txtSpeech.SelLength() != 0) dlgPrint.Flags += kPrintSelection;
    dlgPrint.ShowPrinter();
    // The answer is not looked at, deliberately: who cancels prints all the same, and a selection
    // does not restrict what is printed.
    printer_.PrintRichText(
        txtSpeech, {.left = kOneInch, .top = kOneInch, .right = kOneInch, .bottom = kOneInch});
}

}  // namespace corvane
