// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_keys.h"

#include <gtest/gtest.h>
#include <xcb/xtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "linux/send_keys_notation.h"
#include "linux/session/x11_keyboard.h"
#include "temporary_folder.h"

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

TEST_F(X11KeysTest, StrokeWithoutAKeyTypesNothingAtAll) {
    OpenWindow();
    EXPECT_EQ(Send("ab→"), SessionAnswer::Unsupported);
    EXPECT_EQ(edit.text(), "");
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

TEST_F(X11KeysTest, ProgramThatDoesNotAnswerIsTypedIntoAsWell) {
    const TemporaryFolder folder;
    QProcess terminal;
    terminal.start("xterm", {"-e", "sh", "-c",
                             "read line; printf %s \"$line\" > \"$0.part\"; mv \"$0.part\" \"$0\"",
                             QString::fromStdString(folder / "typed")});
    ASSERT_TRUE(terminal.waitForStarted(kBound));
    const auto focus_is_elsewhere = [&] {
        const auto focus =
            Answer<xcb_get_input_focus_reply>(x, xcb_get_input_focus(x.connection()));
        const auto owner = Answer<xcb_get_property_reply>(
            x, xcb_get_property(x.connection(), 0, focus->focus, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                                0, 64));
        if (!owner) return false;
        const std::string_view name(
            static_cast<const char*>(xcb_get_property_value(owner.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(owner.get())));
        return name.starts_with("xterm");
    };
    ASSERT_TRUE(QTest::qWaitFor(focus_is_elsewhere, kBound));
    EXPECT_EQ(Send("Some words{ENTER}"), SessionAnswer::Done);
    ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder / "typed"); }, kBound));
    EXPECT_EQ(folder.Bytes("typed"), "Some words");
    terminal.waitForFinished(kBound);
}

}  // namespace
}  // namespace corvane::linux_desktop

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
