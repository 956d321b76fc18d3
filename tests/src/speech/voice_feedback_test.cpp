// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "speech/voice_feedback.h"

#include <gtest/gtest.h>

#include <array>

#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

constexpr std::array kControls{
    ControlDescription{.name = "Shown",
                       .kind = ControlKind::MultilineTextBox,
                       .place = {0, 0, 100, 100},
                       .hide_selection = false},
    ControlDescription{
        .name = "Hidden", .kind = ControlKind::MultilineTextBox, .place = {0, 0, 100, 100}}};
constexpr WindowDescription kBoards{.name = "Boards", .caption = "", .controls = kControls};

class Boards final : public forms::Form {
public:
    Boards(IWindowToolkit& toolkit, MessageLoop& loop) : Form(toolkit, loop, kBoards) {}
    forms::TextBox Shown{*this, "Shown"};
    forms::TextBox Hidden{*this, "Hidden"};
};

class MarkWordTest : public ::testing::Test {
protected:
    static std::string Marked(const forms::TextBox& text) {
        return CStr(text.SelStart()) + "+" + CStr(text.SelLength());
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    std::shared_ptr<Boards> boards = std::make_shared<Boards>(desktop.windows, loop);
};

TEST_F(MarkWordTest, MarksTheWordWhereItStands) {
    boards->Shown.SetText("one two");
    MarkWord(boards->Shown, 4, 3);
    EXPECT_EQ(Marked(boards->Shown), "4+3");
    const auto& shown = desktop.windows.Window("Boards").texts.at("Shown");
    EXPECT_EQ(shown.start, 4);
    EXPECT_EQ(shown.length, 3);
}

TEST_F(MarkWordTest, WhereMarksAreHiddenNothingIsMarked) {
    boards->Hidden.SetText("one two");
    MarkWord(boards->Hidden, 4, 3);
    EXPECT_EQ(Marked(boards->Hidden), "0+0");
}

TEST_F(MarkWordTest, InAnEmptyTextNothingIsMarked) {
    desktop.record.Fail("SetSelection", kAutomationError);
    MarkWord(boards->Shown, 0, 3);  // the control is not even asked
    EXPECT_EQ(Marked(boards->Shown), "0+0");
}

TEST_F(MarkWordTest, APlaceThatTheTextNoLongerHasIsItsEnd) {
    boards->Shown.SetText("one");
    MarkWord(boards->Shown, 2, 5);
    EXPECT_EQ(Marked(boards->Shown), "2+1");
    MarkWord(boards->Shown, 9, 5);
    EXPECT_EQ(Marked(boards->Shown), "3+0");
}

}  // namespace
}  // namespace corvane
