// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_keys.h"

#include <gtest/gtest.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "clipboard_manager.h"
#include "copying_program.h"
#include "linux/send_keys_notation.h"
#include "linux/session/x11_clipboard.h"
#include "linux/session/x11_keyboard.h"
#include "linux/session/x11_manager_turn.h"
#include "linux/session/x11_spare_keys.h"

/// Needs an X server with a window manager.
namespace corvane::linux_desktop {
namespace {

constexpr int kBound = 10000;  // milliseconds

/// More characters that the layout lacks than keys are lent.
constexpr auto kToBePasted = "абвгдежзийклмнопрст";

std::string TextOnTheClipboard() {
    return X11Clipboard(nullptr).ReadText(std::chrono::milliseconds(kBound)).value_or("nothing");
}

/// A program whose window takes the keys, and which pastes by way of another connection.
class ProgramOfTwoConnections {
public:
    ProgramOfTwoConnections() {
        const std::array<std::uint32_t, 2> values{1, XCB_EVENT_MASK_KEY_PRESS};
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), 0, 0, 50, 50,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
        xcb_map_window(x_.connection(), window_);
        xcb_set_input_focus(x_.connection(), XCB_INPUT_FOCUS_POINTER_ROOT, window_,
                            XCB_CURRENT_TIME);
        x_.Sync();
        insert_ = X11Keyboard(x_).Find({NamedKey::Insert})->code;
        thread_ = std::thread([this] { Serve(); });
    }
    ~ProgramOfTwoConnections() { (void)TakeText(); }
    ProgramOfTwoConnections(const ProgramOfTwoConnections&) = delete;
    ProgramOfTwoConnections& operator=(const ProgramOfTwoConnections&) = delete;

    /// What was pasted, once it has ended.
    std::string TakeText() {
        ends_ = true;
        if (thread_.joinable()) thread_.join();
        return text_;
    }

private:
    void Serve() {
        while (!ends_) {
            pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
            ::poll(&connection, 1, 5);
            while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())})
                if ((event->response_type & 0x7F) == XCB_KEY_PRESS &&
                    reinterpret_cast<const xcb_key_press_event_t&>(*event).detail == insert_)
                    text_ += TextOnTheClipboard();
        }
    }

    X11Connection x_;
    xcb_window_t window_ = xcb_generate_id(x_.connection());
    xcb_keycode_t insert_ = 0;
    std::string text_;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

class X11KeysTest : public testing::Test {
protected:
    void OpenWindow() {
        edit.setWindowTitle("the window that is typed into");
        edit.show();
        edit.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&edit, kBound));
        edit.setFocus();
        // The window manager may still be busy with the window before, and move the focus.
        const auto is_told_active = [this] {
            const auto active = Answer<xcb_get_property_reply>(
                x, xcb_get_property(x.connection(), 0, x.root(), x.Atom("_NET_ACTIVE_WINDOW"),
                                    XCB_ATOM_WINDOW, 0, 1));
            return active && xcb_get_property_value_length(active.get()) == 4 &&
                   *static_cast<const xcb_window_t*>(xcb_get_property_value(active.get())) ==
                       edit.winId();
        };
        ASSERT_TRUE(QTest::qWaitFor(is_told_active, kBound));
        // It was asked for the front besides, and might give it once more.
        ASSERT_TRUE(X11ManagerTurn(x).Await(std::chrono::steady_clock::now() +
                                            std::chrono::milliseconds(kBound)));
    }
    SessionAnswer Send(const char* notation) {
        const auto answer = keys.Type(ParseKeys(notation));
        keys.WaitUntilTaken();
        return answer;
    }
    /// A person's finger.
    void Finger(std::uint8_t direction, xcb_keycode_t code) {
        xcb_test_fake_input(x.connection(), direction, code, 0, 0, 0, 0, 0);
        x.Sync();
    }
    [[nodiscard]] xcb_keycode_t CodeOf(NamedKey key) const {
        return X11Keyboard(x).Find({key})->code;
    }

    X11Connection x;
    X11Keys keys{[] { QCoreApplication::processEvents(); }};
    QLineEdit edit;
};

TEST_F(X11KeysTest, KeysHaveArrivedInOurOwnWindowWhenTheWaitIsOver) {
    OpenWindow();
    EXPECT_EQ(Send("Hello, World! {+}1~"), SessionAnswer::Done);
    EXPECT_EQ(edit.text(), "Hello, World! +1");
}

TEST_F(X11KeysTest, ChordIsNotTyped) {
    OpenWindow();
    Send("abc^axy");
    EXPECT_EQ(edit.text(), "xy");
    Send("{BS}");
    EXPECT_EQ(edit.text(), "x");
}

TEST_F(X11KeysTest, CharacterThatTheLayoutLacksIsLentAKeyForTheTextOnly) {
    OpenWindow();
    const auto spare = X11Keyboard(x).spare();
    EXPECT_EQ(Send("ab→é+éÉ"), SessionAnswer::Done);
    EXPECT_EQ(edit.text(), "ab→éÉÉ");
    EXPECT_EQ(X11Keyboard(x).spare(), spare);
    EXPECT_FALSE(X11Keyboard(x).Find({U'→'}));
}

TEST_F(X11KeysTest, NamedKeyThatTheLayoutLacksIsLentAKey) {
    OpenWindow();
    ASSERT_FALSE(X11Keyboard(x).Find({NamedKey::F16}));
    EXPECT_EQ(Send("{F16}x"), SessionAnswer::Done);
    EXPECT_EQ(edit.text(), "x");
}

TEST_F(X11KeysTest, MoreChordsThanThereAreKeysForTypeNothingAtAll) {
    OpenWindow();
    EXPECT_EQ(Send("ab^а^б^в^г^д^е^ж^з^и^й^к^л"), SessionAnswer::Unsupported);
    EXPECT_EQ(edit.text(), "");
}

TEST_F(X11KeysTest, AtMostTenKeysAreLentAndAllAreFreeAgain) {
    const auto spare = X11Keyboard(x).spare();
    {
        X11SpareKeys keys_lent(x);
        const X11Keyboard keyboard(x);
        const std::vector<xcb_keysym_t> few{XKB_KEY_eacute, XKB_KEY_Eacute, XKB_KEY_Cyrillic_de};
        ASSERT_TRUE(keys_lent.Suffice(few, keyboard));
        keys_lent.Lend(few, keyboard);
        EXPECT_EQ(X11Keyboard(x).spare().size(), spare.size() - 2);
        EXPECT_EQ(keys_lent.Find(XKB_KEY_eacute)->code, keys_lent.Find(XKB_KEY_Eacute)->code);
        std::vector<xcb_keysym_t> many;
        for (std::size_t i = 0; i < X11SpareKeys::kMost - 2; ++i)
            many.push_back(XKB_KEY_Greek_alpha + static_cast<xcb_keysym_t>(i));
        EXPECT_TRUE(keys_lent.Suffice(many, keyboard));
        many.push_back(XKB_KEY_Thai_kokai);
        EXPECT_FALSE(keys_lent.Suffice(many, keyboard));
    }
    EXPECT_EQ(X11Keyboard(x).spare(), spare);
}

TEST_F(X11KeysTest, KeysLentLastAreFreedAlone) {
    const auto spare = X11Keyboard(x).spare();
    X11SpareKeys keys_lent(x);
    keys_lent.Lend(std::vector<xcb_keysym_t>{XKB_KEY_Cyrillic_de}, X11Keyboard(x));
    keys_lent.Lend(std::vector<xcb_keysym_t>{XKB_KEY_Thai_kokai}, X11Keyboard(x));
    keys_lent.GiveBack(1);
    EXPECT_TRUE(keys_lent.Find(XKB_KEY_Cyrillic_de));
    EXPECT_FALSE(keys_lent.Find(XKB_KEY_Thai_kokai));
    EXPECT_EQ(X11Keyboard(x).spare().size(), spare.size() - 1);
}

TEST_F(X11KeysTest, KeyThatHasLostItsSymbolIsNoLongerLent) {
    X11SpareKeys keys_lent(x);
    keys_lent.Lend(std::vector<xcb_keysym_t>{XKB_KEY_Cyrillic_de, XKB_KEY_Thai_kokai},
                   X11Keyboard(x));
    // As a person does who chooses another layout.
    const xcb_keysym_t nothing = XCB_NO_SYMBOL;
    xcb_change_keyboard_mapping(x.connection(), 1, keys_lent.Find(XKB_KEY_Cyrillic_de)->code, 1,
                                &nothing);
    keys_lent.DropLost();
    EXPECT_FALSE(keys_lent.Find(XKB_KEY_Cyrillic_de));
    EXPECT_TRUE(keys_lent.Find(XKB_KEY_Thai_kokai));
}

TEST_F(X11KeysTest, AProcessThatEndsBehindItsKeysPutsBackWhatItLent) {
    OpenWindow();
    const auto spare = X11Keyboard(x).spare();
    bool ended = false;
    std::unique_ptr<X11Keys> ends;
    ends = std::make_unique<X11Keys>([&] {
        QCoreApplication::processEvents();
        if (std::exchange(ended, true)) return;
        EXPECT_NE(X11Keyboard(x).spare(), spare);
        ends->GiveAllBack();
        EXPECT_EQ(X11Keyboard(x).spare(), spare);
    });
    ends->Type(ParseKeys("→"));
    EXPECT_TRUE(ended);
}

TEST_F(X11KeysTest, AProcessThatEndsWhileItsTextIsPastedPutsTheKeyboardBack) {
    OpenWindow();
    const auto lock = CodeOf(NamedKey::CapsLock);
    Finger(XCB_KEY_PRESS, lock);
    Finger(XCB_KEY_RELEASE, lock);
    bool ended = false;
    std::unique_ptr<X11Keys> ends;
    ends = std::make_unique<X11Keys>([&] {
        QCoreApplication::processEvents();
        if (std::exchange(ended, true)) return;
        EXPECT_EQ(X11Keyboard(x).lock_in_force(), 0);
        ends->GiveAllBack();
        const X11Keyboard after(x);
        EXPECT_TRUE(after.held().empty());
        EXPECT_NE(after.lock_in_force(), 0);
    });
    ends->Type(ParseKeys(kToBePasted));
    EXPECT_TRUE(ended);
    ends.reset();
    EXPECT_TRUE(X11Keyboard(x).held().empty());
    Finger(XCB_KEY_PRESS, lock);
    Finger(XCB_KEY_RELEASE, lock);
}

TEST_F(X11KeysTest, WhatAPersonHadCopiedOutlivesUsWithAClipboardManager) {
    ClipboardManager manager;
    CopyingProgram other;
    other.Copy({{"UTF8_STRING", "the person's"}});
    OpenWindow();
    {
        X11Keys ends([] { QCoreApplication::processEvents(); });
        EXPECT_EQ(ends.Type(ParseKeys(kToBePasted)), SessionAnswer::Done);
    }
    EXPECT_EQ(edit.text(), kToBePasted);
    EXPECT_EQ(TextOnTheClipboard(), "the person's");
}

TEST_F(X11KeysTest, TextIsDeniedAndNotHalfTypedWhereACopyWouldBeLostByPastingIt) {
    OpenWindow();
    CopyingProgram other;
    const std::string text = std::string("ab{TAB}") + kToBePasted;
    const auto spare = X11Keyboard(x).spare();

    other.Copy({{"UTF8_STRING", "the person's"}});
    other.hangs = true;
    EXPECT_EQ(Send(text.c_str()), SessionAnswer::Denied);
    other.hangs = false;
    EXPECT_EQ(TextOnTheClipboard(), "the person's");

    other.part_size = 1U << 20U;
    const std::string large((17U << 20U) + 1, 'x');
    other.Copy({{"UTF8_STRING", large}});
    EXPECT_EQ(Send(text.c_str()), SessionAnswer::Denied);
    EXPECT_EQ(TextOnTheClipboard().size(), large.size());
    other.part_size = 0;

    other.Copy({{"a form of its own", "the person's"}});
    EXPECT_EQ(Send(text.c_str()), SessionAnswer::Denied);
    const X11SelectionReader reader("CLIPBOARD");
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kBound);
    EXPECT_TRUE(reader.Read("a form of its own", end, 100).form);

    EXPECT_EQ(edit.text(), "");
    EXPECT_EQ(X11Keyboard(x).spare(), spare);
    // What needs no paste is typed all the same.
    EXPECT_EQ(Send("ab→"), SessionAnswer::Done);
    EXPECT_EQ(edit.text(), "ab→");
}

TEST_F(X11KeysTest, TextFetchedByAnotherConnectionOfTheProgramHasArrived) {
    // The manager has then done with the window before, and does not take the focus away again.
    OpenWindow();
    CopyingProgram other;
    other.Copy({{"UTF8_STRING", "the person's"}});
    ProgramOfTwoConnections program;
    EXPECT_EQ(Send(kToBePasted), SessionAnswer::Done);
    EXPECT_EQ(program.TakeText(), kToBePasted);
    EXPECT_EQ(TextOnTheClipboard(), "the person's");
}

TEST_F(X11KeysTest, WithoutADisplayTypingIsDenied) {
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":no-such-display");
    X11Keys nowhere([] {});
    qputenv("DISPLAY", display);
    EXPECT_EQ(nowhere.Type(ParseKeys("ab→")), SessionAnswer::Denied);
    nowhere.WaitUntilTaken();
}

TEST_F(X11KeysTest, ModifierOfAGroupStaysDownFromKeyToKey) {
    OpenWindow();
    struct Watch : QObject {
        int released = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::KeyRelease &&
                static_cast<QKeyEvent*>(event)->key() == Qt::Key_Shift)
                ++released;
            return false;
        }
    } watch;
    edit.installEventFilter(&watch);
    Send("+(abc)");
    EXPECT_EQ(watch.released, 1);
    Send("+a+b+c");
    EXPECT_EQ(watch.released, 4);
    EXPECT_EQ(edit.text(), "ABCABC");
}

TEST_F(X11KeysTest, NumLockChangesNoCharacterAndStaysOn) {
    OpenWindow();
    const auto lock = CodeOf(NamedKey::NumLock);
    const auto strike = [&] {
        Finger(XCB_KEY_PRESS, lock);
        Finger(XCB_KEY_RELEASE, lock);
    };
    strike();
    Send("1.5{+}2*3/4-0{HOME}x");
    strike();
    EXPECT_EQ(edit.text(), "x1.5+2*3/4-0");
}

TEST_F(X11KeysTest, CapsLockIsAKeyLikeAnyOther) {
    OpenWindow();
    Send("{CAPSLOCK}");
    EXPECT_NE(X11Keyboard(x).lock_in_force(), 0);
    Send("{CAPSLOCK}");
    EXPECT_EQ(X11Keyboard(x).lock_in_force(), 0);
}

TEST_F(X11KeysTest, CapsLockChangesNoLetterAndStaysOn) {
    OpenWindow();
    const auto lock = CodeOf(NamedKey::CapsLock);
    Finger(XCB_KEY_PRESS, lock);
    Finger(XCB_KEY_RELEASE, lock);
    Send("aBc");
    EXPECT_EQ(edit.text(), "aBc");
    EXPECT_NE(X11Keyboard(x).lock_in_force(), 0);
    Finger(XCB_KEY_PRESS, lock);
    Finger(XCB_KEY_RELEASE, lock);
}

TEST_F(X11KeysTest, ModifierThatAPersonHoldsIsLetGoAndNotPressedInItsPlace) {
    OpenWindow();
    const auto control = X11Keyboard(x).control();
    Finger(XCB_KEY_PRESS, control);
    Send("ab");
    const auto held = X11Keyboard(x).held();
    Finger(XCB_KEY_RELEASE, control);
    EXPECT_EQ(edit.text(), "ab");
    EXPECT_TRUE(held.empty());
}

TEST_F(X11KeysTest, KeyThatAPersonStillHoldsIsTypedAllTheSame) {
    OpenWindow();
    const auto key = X11Keyboard(x).Find({U'h'})->code;
    Finger(XCB_KEY_PRESS, key);
    ASSERT_TRUE(QTest::qWaitFor([&] { return edit.text() == "h"; }, kBound));
    Send("He");
    Finger(XCB_KEY_RELEASE, key);
    EXPECT_EQ(edit.text(), "hHe");
}

}  // namespace
}  // namespace corvane::linux_desktop

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
