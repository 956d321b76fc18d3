// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "grammar/command_grammar.h"
#include "grammar/data_paths.h"
#include "grammar/form1_layout.h"
#include "grammar/keyword_store.h"
#include "platform/automation.h"
#include "platform/language_runtime.h"
#include "runtime/forms/controls.h"
#include "runtime/forms/form.h"
#include "runtime/forms/list_view.h"
#include "runtime/forms/text_box.h"

namespace corvane {

/// The Add Programs window, in which a person ties spoken keywords to programs. It keeps the
/// keyword store and the command grammar in step and hands a change over to the recogniser.
///
/// The rows of its list are the working copy of the store: they are read from the file by position,
/// a keyword and its path in turn, whatever the store's own test makes of those lines.
class Form1 final : public forms::Form {
public:
    /// What the window works on; all of it outlives the window.
    struct Parts {
        ILanguageRuntime& runtime;
        IFileSystemObject& files;
        const DataPaths& paths;
        KeywordStore& keywords;
        CommandGrammar& grammar;
        /// Makes the recogniser listen by that grammar file.
        std::function<void(const std::string& myxfile)> init_rec;
    };

    Form1(IWindowToolkit& toolkit, MessageLoop& loop, Parts parts);

    forms::ListView ListView1{*this, "ListView1"};  // one row an entry: keyword, path
    forms::TextBox Text1{*this, "Text1"};           // keyword
    forms::Fixture Label1{*this, "Label1"};
    forms::TextBox text2{*this, "text2"};  // path
    forms::Fixture Label2{*this, "Label2"};
    forms::CommandButton Command1{*this, "Command1"};  // Browse
    forms::CommandButton Command2{*this, "Command2"};  // Add
    forms::CommandButton Command3{*this, "Command3"};  // Delete
    forms::CommandButton Command4{*this, "Command4"};  // Clear All
    forms::CheckBox Check2{*this, "Check2"};           // search as you type
    forms::CommonDialog comdlg{*this, "comdlg"};

private:
    void BindHandlers();

    void Form_Load();
    void Form_Resize();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void ListView1_Click();
    void ListView1_DblClick();
    void ListView1_LostFocus();
    void Text1_Change();
    void text2_Change();
    void Check2_Click();

    /// Whether no row has just this keyword.
    [[nodiscard]] bool IsNewKeyword(const std::string& keyword) const;
    void BrowseForProgram();
    void SearchAsTyped();
    [[nodiscard]] std::vector<KeywordRow> Rows() const;

    Parts parts_;
};

}  // namespace corvane
