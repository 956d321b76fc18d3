// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/rich_text_printer.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "dictation/form5.h"
#include "platform/rich_edit.h"
#include "support/desk.h"

namespace corvane {
namespace {

constexpr PrintMargins kOneInch{1440, 1440, 1440, 1440};
/// What fits on a page of the simulated printer with margins of an inch.
constexpr int kLinesOnAPage = 54;

std::string Lines(int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i) lines += "line " + std::to_string(i) + "\r\n";
    return lines;
}

class RichTextPrinterTest : public ::testing::Test {
protected:
    void Print(const std::string& text, const PrintMargins& margins = kOneInch) {
        pad->txtSpeech.SetText(text);
        printer.PrintRichText(pad->txtSpeech, margins);
    }
    [[nodiscard]] const simulated::PrintedJob& Job() const { return desktop.printer.Jobs().at(0); }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    RichTextPrinter printer{desktop.printer, desktop.gdi, desktop.user32};
    bool PadActive = false;
    forms::Lazy<Form5> pad{
        [this] { return std::make_shared<Form5>(desktop.windows, loop, printer, PadActive); }};
};

TEST(FormatRange, ItsFieldsStandInThePublishedOrder) {
    EXPECT_LT(offsetof(FORMATRANGE, hdc), offsetof(FORMATRANGE, hdcTarget));
    EXPECT_LT(offsetof(FORMATRANGE, hdcTarget), offsetof(FORMATRANGE, rc));
    EXPECT_LT(offsetof(FORMATRANGE, rc), offsetof(FORMATRANGE, rcPage));
    EXPECT_LT(offsetof(FORMATRANGE, rcPage), offsetof(FORMATRANGE, chrg));
    EXPECT_LT(offsetof(CHARRANGE, cpMin), offsetof(CHARRANGE, cpMax));
    EXPECT_LT(offsetof(RECT, left), offsetof(RECT, top));
    EXPECT_LT(offsetof(RECT, top), offsetof(RECT, right));
    EXPECT_LT(offsetof(RECT, right), offsetof(RECT, bottom));
}

TEST_F(RichTextPrinterTest, AnEmptyPadPrintsOnePage) {
    Print("");
    EXPECT_EQ(desktop.record.Transcript(),
              "Printer.Print \" \"\n"
              "Printer.ScaleMode 1\n"
              "FormatRange draw 1080,1200,10440,14160 of 0,0,11520,15360 from 0 to -1\n"
              "Printer.EndDoc\n"
              "FreeLayout\n");
    ASSERT_EQ(Job().size(), 1U);
    EXPECT_EQ(Job()[0].printed, " \n");
    EXPECT_TRUE(Job()[0].lines.empty());
}

TEST_F(RichTextPrinterTest, ATextThatFitsOnePageTakesOnePass) {
    Print(Lines(kLinesOnAPage));
    ASSERT_EQ(Job().size(), 1U);
    EXPECT_EQ(Job()[0].lines.size(), std::size_t{kLinesOnAPage});
    EXPECT_EQ(desktop.record.Transcript().find("NewPage"), std::string::npos);
}

TEST_F(RichTextPrinterTest, ATextOfExactlyTwoPagesHasNoThird) {
    Print(Lines(2 * kLinesOnAPage));
    ASSERT_EQ(Job().size(), 2U);
    EXPECT_EQ(Job()[1].lines.front(), "line 55");
    EXPECT_EQ(Job()[1].lines.back(), "line 108");
}

TEST_F(RichTextPrinterTest, OneLineMoreThanAPageGoesOnToTheNext) {
    Print(Lines(kLinesOnAPage) + "last");
    ASSERT_EQ(Job().size(), 2U);
    EXPECT_EQ(Job()[1].lines, std::vector<std::string>{"last"});
}

TEST_F(RichTextPrinterTest, EachPageIsBegunByABlankAndDrawnInItsOwnContext) {
    // A context of an earlier page is refused by the printer.
    Print(Lines(3 * kLinesOnAPage));
    ASSERT_EQ(Job().size(), 3U);
    for (const auto& page : Job()) EXPECT_EQ(page.printed, " \n");
    EXPECT_NE(desktop.record.Transcript().find("Printer.NewPage\nPrinter.Print \" \"\nFormatRange"),
              std::string::npos);
}

TEST_F(RichTextPrinterTest, PagesFollowEachOtherByCharactersAndNotByBytes) {
    std::string text;
    for (int i = 0; i < kLinesOnAPage + 1; ++i) text += "größer\r\n";
    Print(text);
    ASSERT_EQ(Job().size(), 2U);
    EXPECT_EQ(Job()[1].lines, std::vector<std::string>{"größer"});
    EXPECT_NE(desktop.record.Transcript().find("from 432 to -1"), std::string::npos);
}

TEST_F(RichTextPrinterTest, MarginsAreMeasuredFromThePapersEdge) {
    Print("x", {.left = 1000, .top = 2000, .right = 3000, .bottom = 4000});
    EXPECT_EQ(Job()[0].place, (RECT{1000, 2000, 12240 - 3000, 15840 - 4000}));
}

TEST_F(RichTextPrinterTest, MarginsThatLeaveNoRoomStillComeToAnEnd) {
    Print("a b c", {.left = 9000, .top = 9000, .right = 9000, .bottom = 9000});
    EXPECT_EQ(Job().size(), 3U);
}

TEST_F(RichTextPrinterTest, TheLayoutIsFreedBehindTheJob) {
    Print("x");
    EXPECT_TRUE(desktop.printer.Layouts().empty());
}

TEST_F(RichTextPrinterTest, WhateverFailsTheJobIsAbandonedWithoutAWordOrAnEnd) {
    for (const char* failing :
         {"Printer.Print", "Printer.ScaleX", "Printer.ScaleY", "Printer.Width", "Printer.Height",
          "Printer.ScaleWidth", "Printer.ScaleHeight", "Printer.hDC", "FormatRange",
          "Printer.NewPage", "Printer.EndDoc"}) {
        desktop.record.Clear();
        desktop.record.Fail(failing, kPrinterError);
        Print(Lines(kLinesOnAPage + 1));
        desktop.record.Heal(failing);
        EXPECT_TRUE(desktop.printer.Jobs().empty()) << failing;
        EXPECT_EQ(desktop.record.Transcript().find("EndDoc") != std::string::npos,
                  std::string(failing) == "Printer.EndDoc")
            << failing;
        EXPECT_EQ(desktop.record.Transcript().find("FreeLayout"), std::string::npos) << failing;
        EXPECT_EQ(desktop.record.Transcript().find("ShowErrorReport"), std::string::npos);
    }
}

TEST_F(RichTextPrinterTest, AnAbandonedJobMayKeepItsLayout) {
    desktop.record.Fail("Printer.EndDoc", kPrinterError);
    Print("x");
    EXPECT_EQ(desktop.printer.Layouts().size(), 1U);
}

TEST_F(RichTextPrinterTest, AfterAPrinterErrorTheNextJobIsANewOne) {
    desktop.record.Fail("Printer.NewPage", kPrinterError);
    Print(Lines(kLinesOnAPage + 1));
    desktop.record.Heal("Printer.NewPage");
    Print("x");
    ASSERT_EQ(desktop.printer.Jobs().size(), 1U);
    EXPECT_EQ(Job().size(), 1U);
}

}  // namespace
}  // namespace corvane
