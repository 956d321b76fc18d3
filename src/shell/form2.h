// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gauge/bkcprog.h"
#include "platform/controls.h"
#include "platform/language_runtime.h"
#include "runtime/forms/controls.h"
#include "runtime/forms/form.h"
#include "runtime/forms/list_box.h"
#include "runtime/forms/text_box.h"
#include "runtime/forms/timer.h"
#include "shell/form2_layout.h"

namespace corvane {

/// The main window: what the system is doing, its log, its whiteboard, its spoken help.
class Form2 final : public forms::Form {
public:
    Form2(IWindowToolkit& toolkit, MessageLoop& loop, ILanguageRuntime& runtime, IGdi32& gdi32,
          IUser32& user32);

    forms::ListBox List1{*this, "List1"};              // command list
    forms::ImageList ImageList2{*this, "ImageList2"};  // connection: modem, LAN, busy, none
    forms::Fixture Frame2{*this, "Frame2"};
    forms::PictureBox Picture2{*this, "Picture2"};
    forms::Label Label7{*this, "Label7"};
    forms::Timer Timer1{loop(), std::chrono::milliseconds(1000), true};  // status monitor
    bkCProg bkCProg1;  // free space of the program's drive
    forms::TextBox Text4{*this, "Text4"};
    forms::ProgressBar ProgressBar2{*this, "ProgressBar2"};  // voice level, 0 to 100
    forms::CommandButton Command3{*this, "Command3"};        // Clear
    forms::CommandButton Command2{*this, "Command2"};        // Read
    forms::TextBox Text3{*this, "Text3"};                    // the whiteboard
    forms::Fixture Frame1{*this, "Frame1"};
    forms::PictureBox Picture1{*this, "Picture1"};
    forms::Label Label1{*this, "Label1"};              // where the CD tray is thought to be
    forms::ImageList ImageList1{*this, "ImageList1"};  // tray pictures: closed, open
    forms::TextBox text2{*this, "text2"};
    forms::ProgressBar ProgressBar1{*this, "ProgressBar1"};  // microphone level, 0 to 100
    forms::TextBox Text1{*this, "Text1"};                    // the recognition log
    bkCProg bkCProg2;                                        // free physical memory
    forms::Fixture Label10{*this, "Label10"};
    forms::Fixture Label6{*this, "Label6"};
    forms::Fixture Label5{*this, "Label5"};
    forms::Fixture Label4{*this, "Label4"};
    forms::Fixture Label3{*this, "Label3"};
    forms::Fixture Label2{*this, "Label2"};
    forms::Fixture Line7{*this, "Line7"};
    forms::Fixture Line6{*this, "Line6"};
    forms::Fixture Line5{*this, "Line5"};
    forms::Fixture Line4{*this, "Line4"};
    forms::Fixture Line3{*this, "Line3"};
    forms::Fixture Line2{*this, "Line2"};
    forms::Fixture Line1{*this, "Line1"};

    forms::Menu mnuFile{*this, kMnuFile};
    forms::Menu mnuExit{*this, kMnuExit};
    forms::Menu mnuHelp{*this, kMnuHelp};
    forms::Menu mnuHDoc{*this, kMnuHDoc};
    forms::Menu mnuDivide{*this, kMnuDivide};
    forms::Menu mnuAbout{*this, kMnuAbout};

    bool CdDoorOpen = false;  // what is believed of the CD tray, whatever it really does

private:
    void Text1_Change();
    void Command3_Click();
    void Command2_KeyDown(Integer KeyCode, Integer Shift);
    void Command3_KeyDown(Integer KeyCode, Integer Shift);
    void HandKeyToWhiteboard(Integer KeyCode);

    ILanguageRuntime& runtime_;
};

}  // namespace corvane
