// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/form1.h"

#include <cstddef>
#include <utility>

#include "runtime/failure.h"
#include "runtime/text.h"

namespace corvane {
namespace {

constexpr WindowDescription kForm1{.name = "Form1",
                                   .caption = "Add Programs",
                                   .client_width = 7755,
                                   .client_height = 3825,
                                   .controls = kForm1Controls};

constexpr const char* kNoExecutable =
    "You must enter an executable file path, only .exe's are supported";
// The two blanks are deliberate.
constexpr const char* kKeywordExists = "That command already exists.  Please delete it first.";
constexpr const char* kReallyClear =
    "Are you sure you want to clear all the entries?\r\n"
    "They will not be recoverable after you delete them!";

constexpr const char* kAnyProgram = "*.exe";
constexpr std::int32_t kBrowseFlags = kOverwritePrompt + kPathMustExist + kNoReadOnlyReturn;
static_assert(kBrowseFlags == 34818);

/// Puts the lines that can be read in front of an error there as well.
void ReadLines(IFileSystemObject& files, const std::string& path, std::vector<std::string>& lines) {
    const auto stream = files.OpenTextFile(path, ForReading, false);
    while (!stream->AtEndOfStream()) lines.push_back(stream->ReadLine());
    stream->Close();
}

}  // namespace

Form1::Form1(IWindowToolkit& toolkit, MessageLoop& loop, Parts parts)
    : Form(toolkit, loop, kForm1), parts_(std::move(parts)) {
    BindHandlers();
}

void Form1::BindHandlers() {
    Load = [this] { Form_Load(); };
    Resize = [this] { Form_Resize(); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    ListView1.Click = [this] { ListView1_Click(); };
    ListView1.DblClick = [this] { ListView1_DblClick(); };
    ListView1.LostFocus = [this] { ListView1_LostFocus(); };
    Text1.Change = [this] { Text1_Change(); };
    text2.Change = [this] { text2_Change(); };
    Check2.Click = [this] { Check2_Click(); };
}

void Form1::Form_Load() {
    ResumeNext step;
    std::vector<std::string> lines;
    step([&] { ListView1.SetColumnWidth(1, 0.25F * ListView1.Width()); });
    step([&] { ListView1.SetColumnWidth(2, ListView1.Width() - ListView1.ColumnWidth(1)); });
    if (step.test([&] { return parts_.files.FileLen(parts_.paths.KeywordsTxtPath) != 0; }))
        step([&] { ReadLines(parts_.files, parts_.paths.KeywordsTxtPath, lines); });
    for (std::size_t j = 0; j < lines.size(); j += 2) {
        forms::ListView::Row row;
        step([&] { row = ListView1.Add(lines[j]); });
        step([&] { row->SetSubItem(1, j + 1 < lines.size() ? lines[j + 1] : ""); });
    }
    if (step.test([&] { return ListView1.Count() > 0; })) step([&] { Command4.SetEnabled(true); });
}

void Form1::Form_Resize() {
    ListView1.SetLeft(0.99F * ScaleLeft());
    ListView1.SetWidth(0.99F * ScaleWidth());
}

void Form1::Command1_Click() {
    BrowseForProgram();
    // In lower case, since Add looks for ".exe" in just that case.
    if (!comdlg.FileName.empty() && comdlg.FileName != kAnyProgram)
        text2.SetText(LCase(comdlg.FileName));
}

// Add. The keyword is taken as it stands, even an empty one, and nobody looks whether the path
// names a file.
void Form1::Command2_Click() {
    if (InStr(1, text2.Text(), ".exe") == 0) {
        parts_.runtime.MsgBox(kNoExecutable, kCritical, "Error");
        return;
    }
    if (!IsNewKeyword(Text1.Text())) {
        parts_.runtime.MsgBox(kKeywordExists, kCritical, "Error 1001: Entry already exists");
        return;
    }
    const forms::ListView::Row row = ListView1.Add(Text1.Text());
    parts_.grammar.AppendKeywordRule(Text1.Text());
    row->SetSubItem(1, text2.Text());
    Text1.SetText("");
    text2.SetText("");
    Command2.SetDefault(false);
    Command2.SetEnabled(false);
    Text1.SetFocus();
    Command4.SetEnabled(true);
    parts_.keywords.SaveKeywordsTXT(Rows());
    parts_.init_rec(parts_.paths.KeywordsXmlPath);
}

// Delete: the selected row, whatever stands in the boxes. Without one it raises.
void Form1::Command3_Click() {
    const std::string keyword = ListView1.SelectedItem()->Text();
    const std::string path = ListView1.SelectedItem()->SubItem(1);
    ListView1.Remove(ListView1.SelectedItem()->Index());
    Command3.SetEnabled(false);
    if (ListView1.Count() == 0) {
        Command4.SetEnabled(false);
        parts_.files.DeleteFile(parts_.paths.KeywordsTxtPath);
        parts_.keywords.CreateKeywordsTXT();
    } else {
        parts_.keywords.RemoveKeywordLines(keyword, path);
    }
    parts_.grammar.RemoveKeywordRule(keyword);
    Text1.SetText("");
    text2.SetText("");
    parts_.keywords.Reload();
    parts_.init_rec(parts_.paths.KeywordsXmlPath);
}

// Clear All leaves the boxes and Delete as they stand; Delete may stay enabled without a row.
void Form1::Command4_Click() {
    ResumeNext step;
    if (step.test(
            [&] { return parts_.runtime.MsgBox(kReallyClear, kYesNoQuestion, "WARNING!") == kNo; }))
        return;
    step([&] { ListView1.Clear(); });
    step([&] { Command4.SetEnabled(false); });
    step([&] { parts_.files.DeleteFile(parts_.paths.KeywordsTxtPath); });
    step([&] { parts_.keywords.CreateKeywordsTXT(); });
    step([&] { parts_.grammar.CreateKeywordsXML(); });
    step([&] { parts_.keywords.KeywordNames = parts_.keywords.LoadKeywordNames(); });
    step([&] { parts_.keywords.KeywordPaths = parts_.keywords.LoadKeywordPaths(); });
    step([&] { parts_.init_rec(parts_.paths.KeywordsXmlPath); });
}

void Form1::ListView1_Click() {
    if (ListView1.Count() == 0) return;
    Command3.SetEnabled(true);
    // The row that was clicked: the search may select another one as soon as Text1 changes.
    const forms::ListView::Row row = ListView1.SelectedItem();
    Text1.SetText(row->Text());
    text2.SetText(row->SubItem(1));
}

// A lighter way to take a row out than Delete, deliberately: its rule stays in the grammar and what
// the recogniser listens for stays as it is. The last row even stays in the file, and comes back
// with the window's next load.
void Form1::ListView1_DblClick() {
    ResumeNext step;
    std::string keyword;
    std::string path;
    if (step.test([&] { return ListView1.Count() == 0; })) return;
    step([&] { keyword = ListView1.SelectedItem()->Text(); });
    step([&] { path = ListView1.SelectedItem()->SubItem(1); });
    step([&] { ListView1.Remove(ListView1.SelectedItem()->Index()); });
    step([&] { Command3.SetEnabled(false); });
    if (step.test([&] { return ListView1.Count() == 0; }))
        step([&] { Command4.SetEnabled(false); });
    else
        step([&] { parts_.keywords.RemoveKeywordLines(keyword, path); });
    step([&] { Text1.SetText(""); });
    step([&] { text2.SetText(""); });
}

void Form1::ListView1_LostFocus() {
    if (Command3.Value()) Command3.SetEnabled(true);
}

void Form1::Text1_Change() {
    ResumeNext step;
    if (step.test([&] { return Check2.Value() == 1; }))
        step([&] { ListView1.SetHideSelection(Text1.Text().empty()); });
    // An empty text is sought as well, and found in the first row.
    if (!step.test([&] { return Check2.Value() == 1; })) return;
    forms::ListView::Row row;
    step([&] { row = ListView1.FindItem(Text1.Text()); });
    if (row.empty()) return;
    step([&] { row->EnsureVisible(); });
    step([&] { row->SetSelected(true); });
}

// There is no opposite branch: an emptied path leaves Add as it is.
void Form1::text2_Change() {
    if (Len(text2.Text()) == 0) return;
    Command2.SetDefault(true);
    Command2.SetEnabled(true);
}

void Form1::Check2_Click() {
    if (Check2.Value() == 1) {
        ListView1.SetHideSelection(Text1.Text().empty());
        SearchAsTyped();
    } else {
        ListView1.SetHideSelection(true);
    }
}

bool Form1::IsNewKeyword(const std::string& keyword) const {
    for (Long i = 1; i <= ListView1.Count(); i += 1)
        if (ListView1.Item(i)->Text() == keyword) return false;
    return true;
}

void Form1::BrowseForProgram() {
    comdlg.FileName = kAnyProgram;
    comdlg.Flags = kBrowseFlags;
    comdlg.DialogTitle = "Open exe file path";
    comdlg.Filter = "All Files (*.*)|*.*|Executable Files (*.exe)|*.exe";
    comdlg.FilterIndex = 2;
    comdlg.ShowOpen();
}

void Form1::SearchAsTyped() {
    const forms::ListView::Row row = ListView1.FindItem(Text1.Text());
    if (row.empty()) return;
    row->EnsureVisible();
    row->SetSelected(true);
}

std::vector<KeywordRow> Form1::Rows() const {
    std::vector<KeywordRow> rows;
    for (Long i = 1; i <= ListView1.Count(); i += 1)
        rows.push_back({ListView1.Item(i)->Text(), {ListView1.Item(i)->SubItem(1)}});
    return rows;
}

}  // namespace corvane
