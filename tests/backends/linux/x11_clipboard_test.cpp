// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_clipboard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <chrono>
#include <string>

#include "copying_program.h"
#include "linux/desktop_clipboard.h"
#include "linux/session/x11_selection_owner.h"

/// Needs an X server.
namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;

class X11ClipboardTest : public testing::Test {
protected:
    DesktopClipboard clipboard{MakeSessionClipboard()};
    CopyingProgram other;
};

TEST_F(X11ClipboardTest, AnotherProgramsTextIsReadWithTheSystemsLineEnds) {
    other.Copy({{"UTF8_STRING", "été\n日本\r\n😀"}});
    EXPECT_EQ(clipboard.GetText(), "été\r\n日本\r\n😀");
}

TEST_F(X11ClipboardTest, WhatWasCopiedAMomentAgoIsReadWithoutAMessageInBetween) {
    for (int copy = 0; copy < 50; ++copy) {
        other.Copy({{"UTF8_STRING", "copy " + std::to_string(copy)}});
        ASSERT_EQ(clipboard.GetText(), "copy " + std::to_string(copy));
    }
}

TEST_F(X11ClipboardTest, EveryCopyIsCountedAlsoThatOfTheSameText) {
    other.Copy({{"UTF8_STRING", "same"}});
    const auto before = clipboard.SequenceNumber();
    EXPECT_EQ(clipboard.SequenceNumber(), before);
    EXPECT_EQ(clipboard.GetText(), "same");
    EXPECT_EQ(clipboard.SequenceNumber(), before);  // reading is no copy
    other.Copy({{"UTF8_STRING", "same"}});
    EXPECT_EQ(clipboard.SequenceNumber(), before + 1);
}

TEST_F(X11ClipboardTest, ACopyInOneOfOurOwnWindowsIsReadAndCounted) {
    const auto before = clipboard.SequenceNumber();
    QGuiApplication::clipboard()->setText("from our\nwhiteboard");
    EXPECT_EQ(clipboard.SequenceNumber(), before + 1);
    EXPECT_EQ(clipboard.GetText(), "from our\r\nwhiteboard");
}

TEST_F(X11ClipboardTest, AnotherProgramsCopyBehindOursIsReadWithoutAMessageInBetween) {
    QGuiApplication::clipboard()->setText("ours");
    other.Copy({{"UTF8_STRING", "theirs"}});
    EXPECT_EQ(clipboard.GetText(), "theirs");
}

TEST_F(X11ClipboardTest, AClipboardThatNobodyKeepsIsEmptyAndClearingItIsNoCopy) {
    other.Copy({{"UTF8_STRING", "gone"}});
    const auto before = clipboard.SequenceNumber();
    const X11Connection x;
    xcb_set_selection_owner(x.connection(), XCB_WINDOW_NONE, x.Atom("CLIPBOARD"), XCB_CURRENT_TIME);
    x.Sync();
    EXPECT_EQ(clipboard.GetText(), "");
    EXPECT_EQ(clipboard.SequenceNumber(), before);
}

TEST_F(X11ClipboardTest, WhatIsLentForAPasteAndGivenBackIsNoCopy) {
    other.Copy({{"UTF8_STRING", "the person's"}});
    const auto before = clipboard.SequenceNumber();
    X11SelectionOwner owner("CLIPBOARD");
    ASSERT_TRUE(owner.Offer(CopiedText(U"lent")));
    EXPECT_EQ(clipboard.SequenceNumber(), before);
    owner.OfferLater(CopiedText(U"the person's"), milliseconds(0));
    EXPECT_EQ(clipboard.GetText(), "the person's");
    EXPECT_EQ(clipboard.SequenceNumber(), before);
    other.Copy({{"UTF8_STRING", "new"}});
    EXPECT_EQ(clipboard.SequenceNumber(), before + 1);
}

TEST_F(X11ClipboardTest, APictureIsNoText) {
    other.Copy({{"image/png", "not really"}});
    EXPECT_EQ(clipboard.GetText(), "");
}

TEST_F(X11ClipboardTest, ATextBehindAPictureIsRead) {
    other.Copy({{"image/png", "not really"}});
    EXPECT_EQ(clipboard.GetText(), "");
    other.Copy({{"UTF8_STRING", "words"}});
    EXPECT_EQ(clipboard.GetText(), "words");
}

TEST_F(X11ClipboardTest, OlderProgramsOfferOnlyLatin1) {
    other.Copy({{"STRING", "caf\xE9"}});
    EXPECT_EQ(clipboard.GetText(), "café");
}

TEST_F(X11ClipboardTest, AZeroByteEndsTheText) {
    other.Copy({{"UTF8_STRING", std::string("words\0", 6)}});
    EXPECT_EQ(clipboard.GetText(), "words");
}

TEST_F(X11ClipboardTest, BytesThatAreNoTextDoNoHarm) {
    other.Copy({{"UTF8_STRING", "a\xFF\xC3z"}});
    EXPECT_EQ(clipboard.GetText(), "a��z");
}

TEST_F(X11ClipboardTest, AnEmptyTextIsEmpty) {
    other.Copy({{"UTF8_STRING", ""}});
    EXPECT_EQ(clipboard.GetText(), "");
}

TEST_F(X11ClipboardTest, ALongTextComesInParts) {
    std::string text(3000000, 'a');
    for (std::size_t at = 0; at < text.size(); at += 7) text[at] = 'b';
    other.part_size = 100000;
    other.Copy({{"UTF8_STRING", text}});
    EXPECT_EQ(clipboard.GetText(), text);
}

TEST_F(X11ClipboardTest, AProgramThatHangsCostsABoundedTimeAndLeavesNothingBehind) {
    other.hangs = true;
    other.Copy({{"UTF8_STRING", "late"}});
    X11Clipboard session(nullptr);
    EXPECT_EQ(session.ReadText(milliseconds(30)), std::nullopt);
    EXPECT_LE(other.asked, 1);  // not once more for every other form of text
    other.hangs = false;
    EXPECT_EQ(session.ReadText(milliseconds(5000)), "late");
}

TEST_F(X11ClipboardTest, AProgramThatHangsAmongThePartsCostsABoundedTime) {
    other.part_size = 10;
    other.parts = 2;
    other.Copy({{"UTF8_STRING", std::string(100, 'a')}});
    X11Clipboard session(nullptr);
    EXPECT_EQ(session.ReadText(milliseconds(30)), std::nullopt);
    other.parts = 1000;
    EXPECT_EQ(session.ReadText(milliseconds(5000)), std::string(100, 'a'));
}

}  // namespace
}  // namespace corvane::linux_desktop

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
