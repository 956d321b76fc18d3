// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/key_codes.h"

#include <gtest/gtest.h>

#include <array>

namespace corvane::linux_desktop {
namespace {

QKeyEvent Press(int key, Qt::KeyboardModifiers held = {}, quint32 scan_code = 0) {
    return {QEvent::KeyPress, key, held, scan_code, 0, 0};
}

struct Row {
    int key;
    int code;
};

constexpr auto kRows = std::to_array<Row>({
    {Qt::Key_A, 65},
    {Qt::Key_Z, 90},
    {Qt::Key_0, 48},
    {Qt::Key_9, 57},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Space, 32},
    {Qt::Key_Escape, 27},
    {Qt::Key_Backspace, 8},
    {Qt::Key_Delete, 46},
    {Qt::Key_Insert, 45},
    {Qt::Key_Home, 36},
    {Qt::Key_End, 35},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_F1, 112},
    {Qt::Key_F12, 123},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Slash, 191},
    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_BracketLeft, 219},
    {Qt::Key_Backslash, 220},
    {Qt::Key_BracketRight, 221},
    {Qt::Key_Apostrophe, 222},
    {Qt::Key_ParenLeft, 57},
    {Qt::Key_VolumeMute, 0},
});

TEST(KeyCode, EachKeyHasItsCode) {
    for (const Row& row : kRows) EXPECT_EQ(KeyCode(Press(row.key)), row.code) << row.key;
}

TEST(KeyCode, NumberBlockHasCodesOfItsOwnWhileItGivesNumbers) {
    EXPECT_EQ(KeyCode(Press(Qt::Key_0, Qt::KeypadModifier)), 96);
    EXPECT_EQ(KeyCode(Press(Qt::Key_9, Qt::KeypadModifier)), 105);
    EXPECT_EQ(KeyCode(Press(Qt::Key_Asterisk, Qt::KeypadModifier)), 106);
    EXPECT_EQ(KeyCode(Press(Qt::Key_Slash, Qt::KeypadModifier)), 111);
    EXPECT_EQ(KeyCode(Press(Qt::Key_Down, Qt::KeypadModifier)), 40);
    EXPECT_EQ(KeyCode(Press(Qt::Key_Enter, Qt::KeypadModifier)), 13);
}

TEST(KeyCode, RowOfDigitsIsThatOnEveryLayout) {
    constexpr quint32 kSeventhKey = 16;
    EXPECT_EQ(KeyCode(Press(Qt::Key_Slash, Qt::ShiftModifier, kSeventhKey)), '7');
    EXPECT_EQ(KeyCode(Press(Qt::Key_Egrave, {}, kSeventhKey)), '7');
}

TEST(ShiftState, AddsUpWhatIsHeldAndWhatGoesDown) {
    EXPECT_EQ(ShiftState(Press(Qt::Key_A)), 0);
    EXPECT_EQ(ShiftState(Press(Qt::Key_A, Qt::ShiftModifier | Qt::ControlModifier)), 3);
    EXPECT_EQ(ShiftState(Press(Qt::Key_A, Qt::AltModifier)), 4);
    EXPECT_EQ(ShiftState(Press(Qt::Key_Control)), 2);
}

}  // namespace
}  // namespace corvane::linux_desktop
