// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_clipboard.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <thread>
#include <utility>

#include "linux/desktop_clipboard.h"

/// Needs an X server.
namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;

/// Another program that copies, and hands over what it has copied when it is asked.
class OtherProgram {
public:
    OtherProgram() {
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        x_.Sync();
        thread_ = std::thread([this] { Serve(); });
    }
    ~OtherProgram() {
        ends_ = true;
        thread_.join();
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Copies: what it has, by the form in which it offers it.
    void Copy(const std::map<std::string, std::string>& forms) {
        forms_.clear();
        for (const auto& [form, bytes] : forms) forms_[x_.Atom(form)] = bytes;
        xcb_set_selection_owner(x_.connection(), window_, clipboard_, XCB_CURRENT_TIME);
        x_.Sync();
    }

    std::atomic<int> asked = 0;                 ///< how often it was asked for what it has
    std::atomic<bool> hangs = false;            ///< it answers nothing
    std::atomic<std::size_t> part_size = 0;     ///< not 0: it hands over in parts
    std::atomic<std::size_t> parts = 1U << 30;  ///< behind so many parts it hangs

private:
    void Serve() {
        while (!ends_) {
            pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
            ::poll(&connection, 1, 5);
            while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())})
                Take(*event);
        }
    }

    void Take(const xcb_generic_event_t& event) {
        const int type = event.response_type & 0x7F;
        if (type == XCB_SELECTION_REQUEST) ++asked;
        if (type == XCB_SELECTION_REQUEST && !hangs)
            Answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
        if (type == XCB_PROPERTY_NOTIFY) {
            const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            if (notify.state == XCB_PROPERTY_DELETE && notify.window == asking_.requestor)
                SendPart();
        }
    }

    void Answer(const xcb_selection_request_event_t& request) {
        xcb_selection_notify_event_t answer{};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.requestor = request.requestor;
        answer.selection = request.selection;
        answer.target = request.target;
        const auto form = forms_.find(request.target);
        if (form != forms_.end()) {
            answer.property = request.property;
            if (part_size > 0) {
                asking_ = request;
                rest_ = form->second;
                parts_sent_ = 0;
                const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
                xcb_change_window_attributes(x_.connection(), request.requestor, XCB_CW_EVENT_MASK,
                                             &mask);
                const auto size = static_cast<std::uint32_t>(rest_.size());
                xcb_change_property(x_.connection(), XCB_PROP_MODE_REPLACE, request.requestor,
                                    request.property, incr_, 32, 1, &size);
            } else {
                Put(request, form->second);
            }
        }
        xcb_send_event(x_.connection(), 0, request.requestor, 0,
                       reinterpret_cast<const char*>(&answer));
        xcb_flush(x_.connection());
    }

    void SendPart() {
        if (parts_sent_++ >= parts) return;
        const std::string part = rest_.substr(0, part_size);
        rest_.erase(0, part.size());
        Put(asking_, part);
        if (part.empty()) asking_ = {};
        xcb_flush(x_.connection());
    }

    void Put(const xcb_selection_request_event_t& request, const std::string& bytes) const {
        xcb_change_property(x_.connection(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, request.target, 8,
                            static_cast<std::uint32_t>(bytes.size()), bytes.data());
    }

    X11Connection x_;
    xcb_window_t window_ = xcb_generate_id(x_.connection());
    xcb_atom_t clipboard_ = x_.Atom("CLIPBOARD");
    xcb_atom_t incr_ = x_.Atom("INCR");
    std::map<xcb_atom_t, std::string> forms_;
    xcb_selection_request_event_t asking_{};
    std::string rest_;
    std::size_t parts_sent_ = 0;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

class X11ClipboardTest : public testing::Test {
protected:
    DesktopClipboard clipboard{MakeSessionClipboard()};
    OtherProgram other;
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
