// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts arrive in other programs as they are, whatever the keyboard's layout.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <chrono>
#include <string>
#include <tuple>

#include "copying_program.h"
#include "linux/desktop_clipboard.h"
#include "linux/session/x11_clipboard.h"
#include "linux/session/x11_selection_reader.h"
#include "x11_typing_fixture.h"

namespace corvane::linux_desktop {
namespace {

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

}  // namespace
}  // namespace corvane::linux_desktop

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
