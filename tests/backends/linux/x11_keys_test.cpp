// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_keys.h"

#include <gtest/gtest.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <vector>

#include "linux/send_keys_notation.h"
#include "linux/session/x11_keyboard.h"
#include "linux/session/x11_spare_keys.h"

/// Needs an X server with a window manager.
namespace corvane::linux_desktop {
namespace {

constexpr int kBound = 10000;  // milliseconds

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

TEST_F(X11KeysTest, ModifierThatAPersonHoldsIsOutOfForceAndHeldAgain) {
    OpenWindow();
    const auto control = X11Keyboard(x).control();
    Finger(XCB_KEY_PRESS, control);
    Send("ab");
    const auto held = X11Keyboard(x).held();
    Finger(XCB_KEY_RELEASE, control);
    EXPECT_EQ(edit.text(), "ab");
    EXPECT_EQ(held, std::vector{control});
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
