// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "contract/printing_world.h"
#include "platform/rich_edit.h"
#include "support/expect_error.h"

namespace corvane {

testing::PrintingWorld::Words testing::WordsOf(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

namespace {

using testing::WordsOf;
using Words = testing::PrintingWorld::Words;

constexpr RECT kLargePlace{0, 0, 8000, 12000};
constexpr RECT kNoHeight{1440, 1440, 5000, 1440};
constexpr RECT kNoPlace{1440, 1440, 1000, 1000};
constexpr CHARRANGE kAll{0, -1};

class PrintingContract : public ::testing::Test {
protected:
    void BeginPage() { printer.Print(" "); }

    [[nodiscard]] FORMATRANGE RangeOnPage(const RECT& place, CHARRANGE characters) const {
        return {.hdc = printer.hDC(),
                .hdcTarget = printer.hDC(),
                .rc = place,
                .rcPage = place,
                .chrg = characters};
    }
    std::int32_t Format(HWND box, const RECT& place, CHARRANGE characters, bool draw = true) {
        const FORMATRANGE range = RangeOnPage(place, characters);
        return user32.SendMessageA(box, EM_FORMATRANGE, draw ? 1 : 0, &range);
    }

    /// Where each page of the text in such a place ends.
    std::vector<std::int32_t> PageEnds(const std::string& text, std::int32_t length,
                                       const RECT& place) {
        const HWND box = world->TextBoxWith(text);
        std::vector<std::int32_t> ends;
        for (std::int32_t next = 0; ends.empty() || next < length; ends.push_back(next)) {
            if (ends.size() > 1000) throw std::logic_error("the text has no end");
            if (!ends.empty()) printer.NewPage();
            BeginPage();
            next = Format(box, place, {next, -1});
        }
        printer.EndDoc();
        return ends;
    }

    [[nodiscard]] Words AllWords() const {
        Words words;
        for (const auto& job : world->Jobs())
            for (const Words& page : job) words.insert(words.end(), page.begin(), page.end());
        return words;
    }

    std::unique_ptr<testing::PrintingWorld> world = testing::MakePrintingWorld();
    IPrinter& printer = world->printer();
    IUser32& user32 = world->user32();
};

TEST_F(PrintingContract, TextGoesOnWhereThePageBeforeHasEnded) {
    std::string text;
    for (int i = 1; i <= 3000; ++i)
        text += "word" + std::to_string(i) + (i % 50 == 0 ? "\r\n" : " ");
    const auto ends = PageEnds(text, static_cast<std::int32_t>(text.size()), kLargePlace);
    EXPECT_GT(ends.size(), 1U);
    EXPECT_EQ(ends.back(), static_cast<std::int32_t>(text.size()));
    EXPECT_EQ(world->Jobs().at(0).size(), ends.size());
    EXPECT_EQ(AllWords(), WordsOf(text));
}

TEST_F(PrintingContract, ParagraphLongerThanAPageIsPartedBetweenWords) {
    std::string text = "word0";
    for (int i = 1; i < 3000; ++i) text += " word" + std::to_string(i);
    const auto ends = PageEnds(text, static_cast<std::int32_t>(text.size()), kLargePlace);
    ASSERT_GT(ends.size(), 1U);
    EXPECT_EQ(text[static_cast<std::size_t>(ends.front()) - 1], ' ');
    EXPECT_EQ(AllWords(), WordsOf(text));
}

TEST_F(PrintingContract, EmptyTextIsAtItsEndAtOnce) {
    EXPECT_EQ(PageEnds("", 0, kLargePlace), std::vector<std::int32_t>{0});
    EXPECT_EQ(world->Jobs().at(0).size(), 1U);
}

TEST_F(PrintingContract, PositionsCountCharactersAndALineEndAsTwo) {
    EXPECT_EQ(PageEnds("\u00E4\r\n\r\nb", 6, kNoHeight), (std::vector<std::int32_t>{3, 5, 6}));
    EXPECT_EQ(PageEnds("\U0001F600\r\nb", 4, kNoHeight), (std::vector<std::int32_t>{3, 4}));
    EXPECT_EQ(PageEnds("a\r\n", 3, kLargePlace), std::vector<std::int32_t>{3});
}

TEST_F(PrintingContract, EveryPageAdvancesInAPlaceWithoutRoom) {
    for (const RECT& place : {kNoHeight, kNoPlace}) {
        const auto ends = PageEnds("ab  cd\r\n\r\n\U0001F600 e", 13, place);
        for (std::size_t i = 1; i < ends.size(); ++i) EXPECT_GT(ends[i], ends[i - 1]);
        EXPECT_EQ(ends.back(), 13);
    }
}

TEST_F(PrintingContract, OnlyTheCharactersAskedForAreLaidOut) {
    const HWND box = world->TextBoxWith("one\r\ntwo three");
    BeginPage();
    EXPECT_EQ(Format(box, kLargePlace, {5, 9}), 9);
    printer.EndDoc();
    EXPECT_EQ(AllWords(), WordsOf("two"));
}

TEST_F(PrintingContract, MeasuringDrawsNothing) {
    const HWND box = world->TextBoxWith("one two three");
    BeginPage();
    EXPECT_EQ(Format(box, kLargePlace, kAll, false), 13);
    printer.EndDoc();
    EXPECT_EQ(AllWords(), Words{});
}

TEST_F(PrintingContract, WhatIsPrintedStandsOnThePage) {
    printer.Print("one");
    printer.Print("two");
    printer.NewPage();
    printer.Print("three");
    printer.EndDoc();
    ASSERT_EQ(world->Jobs().size(), 1U);
    EXPECT_EQ(world->Jobs().at(0).at(0), WordsOf("one two"));
    EXPECT_EQ(world->Jobs().at(0).at(1), WordsOf("three"));
}

TEST_F(PrintingContract, JobComesOutOnlyWhenItIsEnded) {
    printer.Print("one");
    printer.NewPage();
    EXPECT_TRUE(world->Jobs().empty());
    printer.EndDoc();
    EXPECT_EQ(world->Jobs().size(), 1U);
    EXPECT_EQ(world->Jobs().at(0).size(), 1U);
    printer.EndDoc();  // without a job
    EXPECT_EQ(world->Jobs().size(), 1U);
}

TEST_F(PrintingContract, EachPageIsAContextOfItsOwnFromItsFirstLineOn) {
    EXPECT_EQ(printer.hDC(), 0U);
    BeginPage();
    const HDC first = printer.hDC();
    EXPECT_NE(first, 0U);
    printer.Print("more");
    EXPECT_EQ(printer.hDC(), first);
    printer.NewPage();
    EXPECT_EQ(printer.hDC(), 0U);
    BeginPage();
    EXPECT_NE(printer.hDC(), 0U);
    EXPECT_NE(printer.hDC(), first);
    printer.EndDoc();
    EXPECT_EQ(printer.hDC(), 0U);
}

TEST_F(PrintingContract, PageThatHasEndedTakesNothingMore) {
    const HWND box = world->TextBoxWith("one");
    BeginPage();
    const FORMATRANGE range = RangeOnPage(kLargePlace, kAll);
    printer.NewPage();
    EXPECT_ERROR(kPrinterError, user32.SendMessageA(box, EM_FORMATRANGE, 1, &range));
}

TEST_F(PrintingContract, OtherMessagesAndOtherWindowsAnswerNothing) {
    const HWND box = world->TextBoxWith("one");
    BeginPage();
    const FORMATRANGE range = RangeOnPage(kLargePlace, kAll);
    EXPECT_EQ(user32.SendMessageA(0, EM_FORMATRANGE, 1, &range), 0);
    EXPECT_EQ(user32.SendMessageA(box + 1000, EM_FORMATRANGE, 1, &range), 0);
    EXPECT_EQ(user32.SendMessageA(box, WM_MOUSEMOVE, 1, &range), 0);
    EXPECT_EQ(user32.SendMessageA(box, EM_FORMATRANGE, 0, nullptr), 0);
}

TEST_F(PrintingContract, BorderOfThePageIsToldInItsDots) {
    BeginPage();
    IGdi32& gdi = world->gdi32();
    const std::int32_t left = gdi.GetDeviceCaps(printer.hDC(), PHYSICALOFFSETX);
    const std::int32_t top = gdi.GetDeviceCaps(printer.hDC(), PHYSICALOFFSETY);
    const auto twips = [](float size) { return static_cast<int>(size); };
    EXPECT_EQ(twips(printer.ScaleX(static_cast<float>(left), kScalePixels, kScaleTwips)), 360);
    EXPECT_GT(twips(printer.ScaleY(static_cast<float>(top), kScalePixels, kScaleTwips)), 0);
    EXPECT_EQ(gdi.GetDeviceCaps(printer.hDC(), 8), 0);
    EXPECT_EQ(gdi.GetDeviceCaps(printer.hDC() + 1000, PHYSICALOFFSETX), 0);
}

TEST_F(PrintingContract, PrintablePartIsToldInTheUnitOfTheScaleMode) {
    const float twips = printer.ScaleWidth();
    EXPECT_FLOAT_EQ(twips, printer.Width() - 2 * 360);
    EXPECT_LT(printer.ScaleHeight(), printer.Height());
    printer.SetScaleMode(kScalePixels);
    EXPECT_FLOAT_EQ(printer.ScaleWidth(), printer.ScaleX(twips, kScaleTwips, kScalePixels));
    printer.SetScaleMode(kScaleTwips);
    EXPECT_FLOAT_EQ(printer.ScaleWidth(), twips);
    EXPECT_FLOAT_EQ(printer.ScaleY(7, kScalePixels, kScalePixels), 7);
}

}  // namespace
}  // namespace corvane
