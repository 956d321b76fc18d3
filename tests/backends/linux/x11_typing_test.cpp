// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts arrive in other programs as they are, whatever the keyboard's layout.
#include <gtest/gtest.h>
#include <xcb/xtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMimeData>
#include <atomic>
#include <iostream>
#include <random>
#include <thread>
#include <utility>

#include "copying_program.h"
#include "linux/desktop_clipboard.h"
#include "linux/send_keys_notation.h"
#include "linux/session/accessibility_relay.h"
#include "linux/session/x11_clipboard.h"
#include "linux/session/x11_keyboard.h"
#include "linux/session/x11_keys.h"
#include "linux/session/x11_selection_reader.h"
#include "typing_programs.h"

/// Needs an X server with a window manager.
namespace corvane::linux_desktop {
namespace {

std::string Utf8(const std::u32string& text) {
    return QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

std::u32string RandomText(const std::u32string& alphabet, std::size_t length) {
    std::mt19937 random(7);  // NOLINT: the same text each time
    std::u32string text;
    while (text.size() < length) text += alphabet[random() % alphabet.size()];
    return text;
}

std::u32string Range(char32_t first, char32_t last) {
    std::u32string range;
    for (char32_t c = first; c <= last; ++c) range += c;
    return range;
}

std::u32string Latin1() {
    return Range(0x20, 0x7E) + Range(0xA0, 0xFF);
}

std::u32string OtherScripts() {
    return Range(U'Α', U'Ρ') + Range(U'α', U'ω') + Range(U'А', U'я') + U"ąćęłńőřšťžĲŒẞ" +
           Range(U'あ', U'ん') + U"漢字日本語中文한국어" + Range(U'א', U'ת') +
           U"“”‘’—…€₽→⇒∞≠√" + Range(0x1F600, 0x1F640) + U"🚀🎉🐧";
}

std::string PlainEnglish(std::size_t length) {
    constexpr std::string_view kSentence =
        "The quick brown fox jumps over the lazy dog, and it isn't even 9 o'clock (or so). "
        "\"Well,\" said Ann: 50% of all that is here? Yes! ";
    std::string text;
    while (text.size() < length) text += kSentence;
    return text.substr(0, length);
}

class X11TypingTest : public testing::Test {
protected:
    static void OpenWindow(QLineEdit& edit) {
        edit.show();
        edit.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&edit, kBound));
        edit.setFocus();
    }
    SessionAnswer Send(const std::string& notation) {
        const auto answer = keys.Type(ParseKeys(notation));
        keys.WaitUntilTaken();
        return answer;
    }
    /// Types it and tells how fast that was.
    void SendText(const std::string& text, const std::string& what) {
        const auto strokes = ParseKeys(InNotation(text));
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(keys.Type(strokes), SessionAnswer::Done);
        keys.WaitUntilTaken();
        const auto seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
        std::cout << what << ": " << strokes.size() << " characters, "
                  << static_cast<int>(static_cast<double>(strokes.size()) / seconds)
                  << " a second\n";
    }
    [[nodiscard]] std::vector<xcb_keycode_t> SpareKeys() const { return X11Keyboard(x).spare(); }

    X11Connection x;
    AccessibilityRelay relay{[] { QCoreApplication::processEvents(); }};
    X11Keys keys{[] { QCoreApplication::processEvents(); },
                 [this](pid_t program) { return relay.WaitForKeysOf(program); }};
};

using ProgramAndLayout = std::tuple<TypingProgram, const char*>;

class TextsInProgram : public X11TypingTest,
                       public testing::WithParamInterface<ProgramAndLayout> {};

TEST_P(TextsInProgram, ArriveExactly) {
    const auto [kind, layout_name] = GetParam();
    const KeyboardLayout layout(layout_name);
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(kind));
    const auto spare = SpareKeys();
    const std::string where = NameOf(kind) + ", " + layout_name + ", ";

    std::string expected;
    const auto send = [&](const std::string& text, const std::string& what) {
        SendText(text, where + what);
        expected += text;
        ASSERT_EQ(program.TextOnceItIs(expected), expected) << what;
    };
    send(PlainEnglish(layout_name == std::string_view("us") ? 2000 : 200), "plain English");
    send("Señor Müller: “déjà vu”…", "a few that the layout lacks");
    send(Utf8(RandomText(Latin1(), 1000)), "Latin-1");
    send(Utf8(RandomText(OtherScripts(), 200)), "other scripts and emoji");
    send("The end.", "the end");
    EXPECT_EQ(SpareKeys(), spare);
}

INSTANTIATE_TEST_SUITE_P(X11TypingTest, TextsInProgram,
                         testing::Combine(testing::Values(TypingProgram::Qt, TypingProgram::Gtk,
                                                          TypingProgram::Terminal),
                                          testing::Values("us", "de", "fr")),
                         [](const auto& row) {
                             return NameOf(std::get<0>(row.param)) + "_" + std::get<1>(row.param);
                         });

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

TEST_F(X11TypingTest, ThirdAndFourthLayoutAreTypedOnToo) {
    const KeyboardLayout layout("us,ru,de,fr", {"-option", "grp:menu_toggle"});
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Qt));
    std::string expected;
    for (int group = 0; group < 4; ++group) {
        const std::string text = "Zoo, Яблоко, Äpfel, où? ";
        Send(text);
        expected += text;
        EXPECT_EQ(program.TextOnceItIs(expected), expected) << "layout " << group;
        QProcess::execute("xdotool", {"key", "ISO_Next_Group"});
    }
}

TEST_F(X11TypingTest, OneTextChangesNoMoreThanTwentyKeysOfTheSession) {
    // Window managers take long over each: they open their input methods anew.
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Qt));
    const auto changes = [this] {
        int count = 0;
        x.Sync();
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x.connection())})
            if ((event->response_type & 0x7FU) == XCB_MAPPING_NOTIFY) ++count;
        return count;
    };
    (void)changes();
    Send("äöüßéèà“”…");
    EXPECT_EQ(changes(), 20);
    Send("äöüßéèà“”…");
    EXPECT_EQ(changes(), 20);
    Send("äöüßéèà“”…→");
    EXPECT_EQ(changes(), 0);
    const std::string expected = "äöüßéèà“”…äöüßéèà“”…äöüßéèà“”…→";
    EXPECT_EQ(program.TextOnceItIs(expected), expected);
    QLineEdit edit;
    OpenWindow(edit);
}

TEST_F(X11TypingTest, AnyTextArrivesInOurOwnWindow) {
    QLineEdit edit;
    OpenWindow(edit);
    const std::string few = "→ naïve ←";
    const std::string many = Utf8(RandomText(OtherScripts(), 200));
    Send(few + many);
    EXPECT_EQ(edit.text().toStdString(), few + many);
}

TEST_F(X11TypingTest, KeysAmongThePastedTextKeepTheirPlace) {
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Gtk));
    const std::string text = Utf8(RandomText(OtherScripts(), 50));
    Send("ab{BS}" + text + "{HOME}c{END}" + text + "+(d)");
    const std::string expected = "ca" + text + text + "D";
    EXPECT_EQ(program.TextOnceItIs(expected), expected);
}

TEST_F(X11TypingTest, HighlightedTextIsReplacedByPastedText) {
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Gtk));
    const std::string text = Utf8(RandomText(OtherScripts(), 50));
    Send("first^a");
    Send(text);
    EXPECT_EQ(program.TextOnceItIs(text), text);
}

TEST_F(X11TypingTest, WhatAnotherProgramHadCopiedIsOnTheClipboardAgain) {
    CopyingProgram other;
    std::string picture(3000000, 'p');
    picture[1] = '\0';
    other.part_size = 100000;
    other.Copy({{"UTF8_STRING", "the person's"},
                {"text/html", "<b>the person's</b>"},
                {"image/png", picture},
                {"DELETE", "an act"}});
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Qt));
    const std::string text = Utf8(RandomText(OtherScripts(), 100));
    for (int time = 1; time <= 2; ++time) {
        Send(text);
        ASSERT_EQ(program.TextOnceItIs(time == 1 ? text : text + text).size(),
                  text.size() * static_cast<std::size_t>(time));
        const X11SelectionReader reader("CLIPBOARD");
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kBound);
        EXPECT_EQ(reader.ReadAll(end, std::size_t{1} << 24U).copied,
                  (Copied{{"UTF8_STRING", "UTF8_STRING", "the person's"},
                          {"text/html", "text/html", "<b>the person's</b>"},
                          {"image/png", "image/png", picture}}));
    }
}

TEST_F(X11TypingTest, WhatOurOwnWindowHadCopiedIsOnTheClipboardAgain) {
    QLineEdit edit;
    OpenWindow(edit);
    Send("from our whiteboard^a");
    Send("^c");
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Qt));
    const std::string text = Utf8(RandomText(OtherScripts(), 100));
    Send(text);
    EXPECT_EQ(program.TextOnceItIs(text), text);
    DesktopClipboard clipboard(MakeSessionClipboard());
    EXPECT_EQ(clipboard.GetText(), "from our whiteboard");
}

TEST_F(X11TypingTest, EmptyClipboardIsEmptyAgain) {
    const X11Connection other;
    xcb_set_selection_owner(other.connection(), XCB_WINDOW_NONE, other.Atom("CLIPBOARD"),
                            XCB_CURRENT_TIME);
    other.Sync();
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Qt));
    const std::string text = Utf8(RandomText(OtherScripts(), 100));
    Send(text);
    EXPECT_EQ(program.TextOnceItIs(text), text);
    EXPECT_EQ(X11SelectionReader("CLIPBOARD").Keeper(), xcb_window_t{XCB_WINDOW_NONE});
}

TEST_F(X11TypingTest, WhatAPersonCopiesMeanwhileIsNotTakenAway) {
    TypedIntoProgram program;
    ASSERT_TRUE(program.Start(TypingProgram::Qt));
    const std::string text = Utf8(RandomText(OtherScripts(), 100));
    Send(text);
    EXPECT_EQ(program.TextOnceItIs(text), text);
    CopyingProgram other;
    other.Copy({{"UTF8_STRING", "new"}});
    Send("x");
    EXPECT_EQ(X11Clipboard(nullptr).ReadText(std::chrono::milliseconds(kBound)), "new");
    Send(text);
    EXPECT_EQ(program.TextOnceItIs(text + "x" + text), text + "x" + text);
    EXPECT_EQ(X11Clipboard(nullptr).ReadText(std::chrono::milliseconds(kBound)), "new");
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

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
