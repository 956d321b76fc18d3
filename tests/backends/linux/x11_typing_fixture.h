// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <cstddef>
#include <iostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "linux/send_keys_notation.h"
#include "linux/session/accessibility_relay.h"
#include "linux/session/x11_connection.h"
#include "linux/session/x11_keyboard.h"
#include "linux/session/x11_keys.h"
#include "typing_programs.h"

namespace corvane::linux_desktop {

inline std::string Utf8(const std::u32string& text) {
    return QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

inline std::u32string RandomText(const std::u32string& alphabet, std::size_t length) {
    std::mt19937 random(7);  // NOLINT: the same text each time
    std::u32string text;
    while (text.size() < length) text += alphabet[random() % alphabet.size()];
    return text;
}

inline std::u32string Range(char32_t first, char32_t last) {
    std::u32string range;
    for (char32_t c = first; c <= last; ++c) range += c;
    return range;
}

inline std::u32string Latin1() {
    return Range(0x20, 0x7E) + Range(0xA0, 0xFF);
}

inline std::u32string OtherScripts() {
    return Range(U'Α', U'Ρ') + Range(U'α', U'ω') + Range(U'А', U'я') + U"ąćęłńőřšťžĲŒẞ" +
           Range(U'あ', U'ん') + U"漢字日本語中文한국어" + Range(U'א', U'ת') +
           U"“”‘’—…€₽→⇒∞≠√" + Range(0x1F600, 0x1F640) + U"🚀🎉🐧";
}

inline std::string PlainEnglish(std::size_t length) {
    constexpr std::string_view kSentence =
        "The quick brown fox jumps over the lazy dog, and it isn't even 9 o'clock (or so). "
        "\"Well,\" said Ann: 50% of all that is here? Yes! ";
    std::string text;
    while (text.size() < length) text += kSentence;
    return text.substr(0, length);
}

/// Types on the keyboard of the session. Needs an X server with a window manager.
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

}  // namespace corvane::linux_desktop
