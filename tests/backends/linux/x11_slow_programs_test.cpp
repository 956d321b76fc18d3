// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Programs that take their keys late get them all the same: those that ask others first, and those
// that hang.
#include <gtest/gtest.h>
#include <signal.h>
#include <xcb/xtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "copying_program.h"
#include "linux/session/x11_clipboard.h"
#include "x11_typing_fixture.h"

namespace corvane::linux_desktop {
namespace {

/// A program that follows what others do by way of accessibility, as a screen reader does. From
/// then on programs of Qt ask the registry about each key, and take it when that has answered.
class ScreenReader {
public:
    ScreenReader() {
        const auto question = QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus",
                                                             "org.a11y.Bus", "GetAddress");
        const QDBusReply<QString> address = QDBusConnection::sessionBus().call(question);
        bus_ = QDBusConnection::connectToBus(address.value(), "screen reader");
        auto registration =
            QDBusMessage::createMethodCall("org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                           "org.a11y.atspi.Registry", "RegisterEvent");
        registration << "object:text-changed" << QStringList() << QString();
        registered_ = bus_.call(registration).type() == QDBusMessage::ReplyMessage;
    }
    ~ScreenReader() { QDBusConnection::disconnectFromBus("screen reader"); }
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;

    [[nodiscard]] bool registered() const { return registered_; }
    /// The process of the registry.
    [[nodiscard]] pid_t Registry() const {
        const QDBusReply<uint> process = bus_.interface()->servicePid("org.a11y.atspi.Registry");
        return static_cast<pid_t>(process.value());
    }

private:
    QDBusConnection bus_{"screen reader"};
    bool registered_ = false;
};

class ProgramWithAccessibility : public X11TypingTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(screen_reader.registered());
        ASSERT_TRUE(program.Start(TypingProgram::QtWithAccessibility));
    }

    ScreenReader screen_reader;
    TypedIntoProgram program;
};

TEST_F(ProgramWithAccessibility, IsTypedIntoAsAnyOther) {
    const std::string text = PlainEnglish(2000);
    const std::string others = Utf8(RandomText(OtherScripts(), 200));
    SendText(text, "with accessibility");
    // The registry may be a second behind, and a program that is gets no more than it can take.
    ASSERT_EQ(program.TextOnceItIs(text), text);
    SendText(others, "with accessibility");
    EXPECT_EQ(program.TextOnceItIs(text + others), text + others);
}

TEST_F(ProgramWithAccessibility, HasCopiedWhenTheWaitIsOver) {
    X11Clipboard clipboard(nullptr);
    for (int i = 0; i < 100; ++i) {
        const std::string text = "copy " + std::to_string(i);
        Send("^a" + text);
        Send("^a");
        Send("^c");
        ASSERT_EQ(clipboard.ReadText(std::chrono::milliseconds(kBound)), text);
    }
}

TEST_F(ProgramWithAccessibility, IsAwaitedUntilASlowRegistryHasLetItsKeysGo) {
    X11Clipboard clipboard(nullptr);
    const pid_t registry = screen_reader.Registry();
    ASSERT_GT(registry, 0);
    std::atomic<bool> ends = false;
    // It gets a little further each time.
    std::thread slowing([&] {
        while (!ends) {
            ::kill(registry, SIGSTOP);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            ::kill(registry, SIGCONT);
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
    });
    for (int i = 0; i < 100; ++i) {
        const std::string text = std::to_string(i);
        Send("^a" + text + "^a^c");
        EXPECT_EQ(clipboard.ReadText(std::chrono::milliseconds(kBound)), text);
    }
    ends = true;
    slowing.join();
}

class ProgramThatHangs : public X11TypingTest, public testing::WithParamInterface<TypingProgram> {};

TEST_P(ProgramThatHangs, TakesItsTextWhenItGoesOn) {
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(GetParam()));
    program.Stop(true);
    const std::string typed = PlainEnglish(200) + "éà“”";
    // A terminal gets what the layout lacks by pasting, which it does not fetch now.
    const auto expected =
        GetParam() == TypingProgram::Terminal ? SessionAnswer::Denied : SessionAnswer::Done;
    EXPECT_EQ(Send(InNotation(typed)), expected);
    program.Stop(false);
    EXPECT_EQ(program.TextOnceItIs(typed), typed);
}

TEST_P(ProgramThatHangs, PastesTheTextAndNothingElseWhenItGoesOn) {
    CopyingProgram other;
    other.Copy({{"UTF8_STRING", "the person's"}});
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(GetParam()));
    program.Stop(true);
    const std::string pasted = Utf8(RandomText(OtherScripts(), 100));
    EXPECT_EQ(Send(pasted), SessionAnswer::Denied);
    program.Stop(false);
    EXPECT_EQ(program.TextOnceItIs(pasted), pasted);
}

TEST_P(ProgramThatHangs, LeavesNoModifierDownThatAPersonMayHaveLetGoMeanwhile) {
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(GetParam()));
    program.Stop(true);
    const xcb_keycode_t control = X11Keyboard(x).control();
    xcb_test_fake_input(x.connection(), XCB_KEY_PRESS, control, 0, 0, 0, 0, 0);
    x.Sync();
    ASSERT_EQ(X11Keyboard(x).held(), std::vector{control});
    // So much that it is waited for.
    const std::string typed = Utf8(RandomText(OtherScripts(), 100));
    EXPECT_EQ(Send(typed), SessionAnswer::Denied);
    EXPECT_TRUE(X11Keyboard(x).held().empty());
}

INSTANTIATE_TEST_SUITE_P(X11TypingTest, ProgramThatHangs,
                         testing::Values(TypingProgram::Qt, TypingProgram::Gtk,
                                         TypingProgram::Terminal),
                         [](const auto& row) { return NameOf(row.param); });

}  // namespace
}  // namespace corvane::linux_desktop
