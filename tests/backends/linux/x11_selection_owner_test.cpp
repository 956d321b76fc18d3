// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_selection_owner.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <array>
#include <chrono>
#include <cstring>
#include <string>

#include "clipboard_manager.h"
#include "copying_program.h"
#include "linux/session/x11_selection_reader.h"

/// Needs an X server.
namespace corvane::linux_desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto kBound = 30s;
constexpr std::size_t kAllOfIt = std::size_t{1} << 28U;

class X11SelectionOwnerTest : public testing::Test {
protected:
    /// Another program's view of it.
    std::string Read(const std::string& form) {
        auto reply = reader.Read(form, std::chrono::steady_clock::now() + kBound, kAllOfIt);
        return reply.form ? reply.form->bytes : "nothing";
    }
    /// What is there in place of the answer to a question for several forms at once.
    std::vector<std::uint32_t> ReadNumbers(xcb_window_t window, const char* property) {
        const auto value = Answer<xcb_get_property_reply>(
            x, xcb_get_property(x.connection(), 0, window, x.Atom(property),
                                XCB_GET_PROPERTY_TYPE_ANY, 0, 100));
        if (!value || value->format != 32) return {};
        const auto* numbers =
            static_cast<const std::uint32_t*>(xcb_get_property_value(value.get()));
        return {numbers, numbers + value->value_len};
    }
    /// Asks from a window of ours and waits for the answer.
    xcb_window_t Ask(const char* form, const char* property) {
        const xcb_window_t window = xcb_generate_id(x.connection());
        xcb_create_window(x.connection(), XCB_COPY_FROM_PARENT, window, x.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (std::string(form) == "MULTIPLE") {
            const std::array pairs{x.Atom("UTF8_STRING"), x.Atom("FIRST"), x.Atom("image/png"),
                                   x.Atom("SECOND")};
            xcb_change_property(x.connection(), XCB_PROP_MODE_REPLACE, window, x.Atom(property),
                                x.Atom("ATOM_PAIR"), 32, pairs.size(), pairs.data());
        }
        xcb_convert_selection(x.connection(), window, x.Atom("CLIPBOARD"), x.Atom(form),
                              x.Atom(property), XCB_CURRENT_TIME);
        xcb_flush(x.connection());
        while (const XcbReply<xcb_generic_event_t> event{xcb_wait_for_event(x.connection())})
            if ((event->response_type & 0x7FU) == XCB_SELECTION_NOTIFY) break;
        return window;
    }

    X11Connection x;
    X11SelectionOwner owner{"CLIPBOARD"};
    X11SelectionReader reader{"CLIPBOARD"};
};

TEST_F(X11SelectionOwnerTest, TextIsHandedOverInEveryFormOfText) {
    ASSERT_TRUE(owner.Offer(CopiedText(U"Öl → 😀")));
    EXPECT_TRUE(owner.Keeps());
    EXPECT_EQ(Read("UTF8_STRING"), "Öl → 😀");
    EXPECT_EQ(Read("text/plain;charset=utf-8"), "Öl → 😀");
    EXPECT_EQ(Read("text/plain"), "Öl → 😀");
    EXPECT_EQ(Read("TEXT"), "Öl → 😀");
    EXPECT_EQ(Read("STRING"), "\xD6l ? ?");
    EXPECT_EQ(Read("image/png"), "nothing");
}

TEST_F(X11SelectionOwnerTest, OurOwnWindowsReadItToo) {
    ASSERT_TRUE(owner.Offer(CopiedText(U"Öl → 😀")));
    const auto is_read = [] { return QGuiApplication::clipboard()->text() == "Öl → 😀"; };
    // The toolkit learns of a copy with one of its next messages.
    EXPECT_TRUE(QTest::qWaitFor(is_read, 30000));
}

TEST_F(X11SelectionOwnerTest, FormsAndTimeAreToldToWhoeverAsks) {
    ASSERT_TRUE(owner.Offer({{"text/html", "text/html", "<b>x</b>"}}));
    const auto targets = ReadNumbers(Ask("TARGETS", "ANSWER"), "ANSWER");
    EXPECT_EQ(targets, (std::vector<std::uint32_t>{x.Atom("TARGETS"), x.Atom("MULTIPLE"),
                                                   x.Atom("TIMESTAMP"), x.Atom("text/html")}));
    const auto time = ReadNumbers(Ask("TIMESTAMP", "ANSWER"), "ANSWER");
    ASSERT_EQ(time.size(), 1U);
    EXPECT_NE(time.front(), std::uint32_t{XCB_CURRENT_TIME});
}

TEST_F(X11SelectionOwnerTest, SeveralFormsAtOnceAreHandedOverAndWhatIsMissingIsMarked) {
    ASSERT_TRUE(owner.Offer(CopiedText(U"words")));
    const xcb_window_t window = Ask("MULTIPLE", "ANSWER");
    EXPECT_EQ(ReadNumbers(window, "ANSWER"),
              (std::vector<std::uint32_t>{x.Atom("UTF8_STRING"), x.Atom("FIRST"),
                                          x.Atom("image/png"), XCB_ATOM_NONE}));
    const auto first = Answer<xcb_get_property_reply>(
        x, xcb_get_property(x.connection(), 0, window, x.Atom("FIRST"), XCB_GET_PROPERTY_TYPE_ANY,
                            0, 100));
    ASSERT_TRUE(first);
    EXPECT_EQ(std::string(static_cast<const char*>(xcb_get_property_value(first.get())), 5),
              "words");
}

TEST_F(X11SelectionOwnerTest, LargeOneIsHandedOverInParts) {
    std::string large(3000001, 'a');
    for (std::size_t at = 0; at < large.size(); at += 7) large[at] = 'b';
    ASSERT_TRUE(owner.Offer({{"image/png", "image/png", large}}));
    EXPECT_EQ(Read("image/png"), large);
    EXPECT_EQ(Read("image/png"), large);
    ASSERT_TRUE(owner.Offer({{"image/png", "image/png", std::string(65536, 'x')}}));
    EXPECT_EQ(Read("image/png"), std::string(65536, 'x'));
}

TEST_F(X11SelectionOwnerTest, ReaderTakesNoMoreThanItWants) {
    ASSERT_TRUE(owner.Offer({{"UTF8_STRING", "UTF8_STRING", "words"},
                             {"text/html", "text/html", std::string(200000, 'x')},
                             {"text/rtf", "text/rtf", "rtf"}}));
    const auto end = std::chrono::steady_clock::now() + kBound;
    const auto without_html = reader.ReadAll(end, 100000);
    EXPECT_EQ(without_html.copied,
              (Copied{{"UTF8_STRING", "UTF8_STRING", "words"}, {"text/rtf", "text/rtf", "rtf"}}));
    EXPECT_FALSE(without_html.complete);
    EXPECT_EQ(reader.ReadAll(end, 7).copied, (Copied{{"UTF8_STRING", "UTF8_STRING", "words"}}));
    EXPECT_TRUE(reader.ReadAll(end, 300000).complete);
}

TEST_F(X11SelectionOwnerTest, ReaderTellsWhetherItHasReadAll) {
    CopyingProgram other;
    const auto is_complete = [&] {
        return reader.ReadAll(std::chrono::steady_clock::now() + kBound, kAllOfIt).complete;
    };
    other.Copy({{"UTF8_STRING", "words"}, {"a form of its own", "?"}});
    EXPECT_TRUE(is_complete());
    other.Copy({{"a form of its own", "?"}});
    EXPECT_FALSE(is_complete());
    other.Copy({});
    EXPECT_TRUE(is_complete());
    other.Copy({{"UTF8_STRING", "words"}});
    other.hangs = true;
    EXPECT_FALSE(reader.ReadAll(std::chrono::steady_clock::now() + 30ms, kAllOfIt).complete);
    ASSERT_TRUE(owner.Offer({}));
    owner.OfferLater({}, 0ms);
    EXPECT_TRUE(is_complete());
}

TEST_F(X11SelectionOwnerTest, ClipboardManagerHasWhatWasKeptOnceTheKeeperIsGone) {
    ClipboardManager manager;
    {
        X11SelectionOwner ends("CLIPBOARD");
        ASSERT_TRUE(ends.Offer({{"UTF8_STRING", "UTF8_STRING", "words"},
                                {"image/png", "image/png", std::string(200000, 'p')}}));
        EXPECT_TRUE(ends.HandOver(kBound));
    }
    EXPECT_EQ(Read("UTF8_STRING"), "words");
    EXPECT_EQ(Read("image/png"), std::string(200000, 'p'));
}

TEST_F(X11SelectionOwnerTest, WithoutAClipboardManagerNothingIsHandedOver) {
    ASSERT_TRUE(owner.Offer(CopiedText(U"words")));
    EXPECT_FALSE(owner.HandOver(kBound));
    EXPECT_EQ(Read("UTF8_STRING"), "words");
}

TEST_F(X11SelectionOwnerTest, ClipboardManagerThatHangsIsNotWaitedForForLong) {
    ClipboardManager manager;
    manager.hangs = true;
    ASSERT_TRUE(owner.Offer(CopiedText(U"words")));
    EXPECT_FALSE(owner.HandOver(30ms));
    EXPECT_EQ(Read("UTF8_STRING"), "words");
}

TEST_F(X11SelectionOwnerTest, FetchesBeforeTheStrokeDoNotCount) {
    ASSERT_TRUE(owner.Offer(CopiedText(U"words")));
    EXPECT_EQ(Read("UTF8_STRING"), "words");
    EXPECT_EQ(owner.Fetched(), 1);
    owner.CountFromNow();
    EXPECT_EQ(owner.Fetched(), 0);
    EXPECT_EQ(Read("UTF8_STRING"), "words");
    EXPECT_EQ(owner.Fetched(), 1);
}

TEST_F(X11SelectionOwnerTest, FetchesAreCountedByProgramAndOffer) {
    const xcb_window_t other = xcb_generate_id(x.connection());
    ASSERT_TRUE(owner.Offer(CopiedText(U"words")));
    (void)ReadNumbers(Ask("TARGETS", "ANSWER"), "ANSWER");
    EXPECT_EQ(owner.FetchedBy(other), 0);
    EXPECT_EQ(Read("UTF8_STRING"), "words");  // another program
    EXPECT_EQ(owner.FetchedBy(other), 0);
    Ask("UTF8_STRING", "ANSWER");
    EXPECT_EQ(owner.FetchedBy(other), 1);
    ASSERT_TRUE(owner.Offer(CopiedText(U"more")));
    EXPECT_EQ(owner.FetchedBy(other), 0);
}

TEST_F(X11SelectionOwnerTest, LaterOfferTakesThePlaceOfTheFirst) {
    ASSERT_TRUE(owner.Offer(CopiedText(U"now")));
    owner.OfferLater(CopiedText(U"later"), 0ms);
    EXPECT_EQ(Read("UTF8_STRING"), "later");
    owner.OfferLater({}, 0ms);
    EXPECT_EQ(reader.Keeper(), xcb_window_t{XCB_WINDOW_NONE});
    EXPECT_FALSE(owner.Keeps());
}

TEST_F(X11SelectionOwnerTest, LaterOfferComesByItself) {
    ASSERT_TRUE(owner.Offer(CopiedText(U"now")));
    owner.OfferLater(CopiedText(U"later"), 5ms);
    const auto end = std::chrono::steady_clock::now() + kBound;
    while (Read("UTF8_STRING") != "later" && std::chrono::steady_clock::now() < end) {
    }
    EXPECT_EQ(Read("UTF8_STRING"), "later");
}

TEST_F(X11SelectionOwnerTest, WhatAnotherProgramCopiesStays) {
    CopyingProgram other;
    ASSERT_TRUE(owner.Offer(CopiedText(U"ours")));
    owner.OfferLater(CopiedText(U"later"), 3600s);
    other.Copy({{"UTF8_STRING", "theirs"}});
    EXPECT_EQ(Read("UTF8_STRING"), "theirs");
    const auto end = std::chrono::steady_clock::now() + kBound;
    while (owner.Keeps() && std::chrono::steady_clock::now() < end) {
    }
    EXPECT_FALSE(owner.Keeps());
    owner.OfferLater(CopiedText(U"even later"), 0ms);
    EXPECT_EQ(Read("UTF8_STRING"), "theirs");
}

}  // namespace
}  // namespace corvane::linux_desktop
