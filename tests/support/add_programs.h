// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/desk.h"

namespace corvane::testing {

using Entry = std::pair<std::string, std::string>;  // keyword, path

/// The system with its Add Programs window open, and a person in front of it.
class AddProgramsTest : public ::testing::Test {
public:
    /// Starts with these entries taught, and asks for the window.
    void Open(const std::vector<Entry>& entries) {
        for (const auto& [keyword, path] : entries) desk.Teach(keyword, path);
        OpenAsItIs();
    }
    void OpenAsItIs() {
        desk.Start();
        ASSERT_TRUE(desk.Hear("add program"));
        desk.Transcript();
    }

    [[nodiscard]] const simulated::ShownWindow& Shown() const {
        return desk.desktop.windows.Window("Form1");
    }
    [[nodiscard]] const simulated::ShownListView& List() const { return Shown().list_views.at("ListView1"); }
    /// All rows, as "keyword=path;" each.
    [[nodiscard]] std::string Rows() const {
        std::string rows;
        for (const auto& row : List().rows) rows += row.at(0) + "=" + row.at(1) + ";";
        return rows;
    }
    [[nodiscard]] std::string Selected() const {
        return List().selected == kNoRow
                   ? "(none)"
                   : List().rows.at(static_cast<std::size_t>(List().selected))[0];
    }
    [[nodiscard]] std::string Keyword() const { return Shown().texts.at("Text1").text; }
    [[nodiscard]] std::string Path() const { return Shown().texts.at("text2").text; }
    [[nodiscard]] bool Enabled(const std::string& button) const {
        return Shown().buttons.at(button).enabled;
    }
    [[nodiscard]] bool Default(const std::string& button) const {
        return Shown().buttons.at(button).is_default;
    }
    [[nodiscard]] std::string File(const std::string& path) const {
        return desk.desktop.files.Bytes(path).value_or("(missing)");
    }
    [[nodiscard]] bool Ended() const { return desk.desktop.runtime.Ended(); }

    void TypeKeyword(const std::string& keyword) { Type("Text1", keyword); }
    void TypePath(const std::string& path) { Type("text2", path); }
    void Press(const std::string& button) {
        Act([&] { desk.desktop.windows.Click("Form1", button); });
    }
    void PressAdd() { Press("Command2"); }
    void PressDelete() { Press("Command3"); }
    void PressClearAll() { Press("Command4"); }
    void ClickRow(int row) {
        Act([&] { desk.desktop.windows.ClickRow("Form1", "ListView1", row); });
    }
    void DoubleClickRow(int row) {
        Act([&] { desk.desktop.windows.DoubleClickRow("Form1", "ListView1", row); });
    }
    void CheckSearch(bool checked) {
        Act([&] { desk.desktop.windows.Check("Form1", "Check2", checked); });
    }
    void CloseWindow() {
        Act([&] { desk.desktop.windows.CloseByFrame("Form1"); });
    }

    Desk desk;

private:
    void Type(const std::string& box, const std::string& text) {
        Act([&] { desk.desktop.windows.Type("Form1", box, text); });
    }
    void Act(const std::function<void()>& act) { desk.desktop.Drive(act); }
};

/// The rule that the window writes for a keyword.
inline std::string WrittenRule(const std::string& keyword) {
    return "<RULE NAME=\"" + keyword +
           "\" TOPLEVEL=\"ACTIVE\">\r\n"
           "      <O>\r\n"
           "          <L>\r\n"
           "               <P>Please</P>\r\n"
           "               <P>Computer</P>\r\n"
           "               <P>Will you</P>\r\n"
           "          </L>\r\n"
           "      </O>\r\n"
           "      <O>\r\n"
           "          <L>\r\n"
           "               <P>run</P>\r\n"
           "               <P>execute</P>\r\n"
           "               <P>load</P>\r\n"
           "          </L>\r\n"
           "      </O>\r\n"
           "      <P>" +
           keyword +
           "</P>\r\n"
           "      <O>please</O>\r\n"
           "</RULE>\r\n";
}

/// The command grammar with the rules of these keywords behind the built-in ones.
inline std::string GrammarWith(const std::vector<std::string>& keywords) {
    std::string grammar = BuiltinGrammar();
    std::string rules;
    for (const std::string& keyword : keywords) rules += WrittenRule(keyword);
    return grammar.insert(grammar.rfind("</GRAMMAR>"), rules);
}

/// An Add Programs window through which somebody teaches, from an empty store on.
class TaughtByTheWindow : public AddProgramsTest {
public:
    /// Opens the window on an empty store and teaches these through it.
    void OpenAndAdd(const std::vector<Entry>& entries) {
        Open({});
        for (const auto& [keyword, path] : entries) Add(keyword, path);
        desk.Transcript();
    }
    void Add(const std::string& keyword, const std::string& path) {
        TypeKeyword(keyword);
        TypePath(path);
        PressAdd();
        desk.desktop.runtime.Install(path);
    }
};

}  // namespace corvane::testing
