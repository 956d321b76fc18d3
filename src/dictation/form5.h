// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "dictation/form5_layout.h"
#include "dictation/rich_text_printer.h"
#include "runtime/forms/controls.h"
#include "runtime/forms/form.h"
#include "runtime/forms/text_box.h"

namespace corvane {

/// The Dictation Pad: the text that is being dictated, and a log of what was heard. Loaded without
/// being shown, it is the window over which the engine's dialogs stand. Its text goes with it.
class Form5 final : public forms::Form {
public:
    /// `PadActive` is true from the load on and while the text has the focus; it and `printer` must
    /// outlive the window.
    Form5(IWindowToolkit& toolkit, MessageLoop& loop, RichTextPrinter& printer, bool& PadActive);

    forms::TextBox Text1{*this, "Text1"};  // the pad's log
    forms::CommandButton Command2{*this, "Command2"};
    forms::CommandButton Command1{*this, "Command1"};
    forms::TextBox txtSpeech{*this, "txtSpeech"};  // the document
    forms::Label Label1{*this, "Label1"};
    forms::CommonDialog dlgPrint{*this, "dlgPrint"};

    /// Shows the engine's words; for the operation below that nothing reaches.
    std::function<void(const std::string& myword)> add_Word2;

    /// Asks how to print and prints the whole text, whatever the answer.
    void Command4_Click();

private:
    /// No control is wired to it and nothing else calls it, deliberately.
    void AddBrindel();

    RichTextPrinter& printer_;
};

}  // namespace corvane
