// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/key_codes.h"

#include <algorithm>
#include <array>
#include <span>

namespace corvane::linux_desktop {
namespace {

struct KeyRow {
    int key;
    std::int16_t code;
};

enum Modifier : std::int16_t { kShiftKey = 16, kControlKey = 17, kMenuKey = 18 };

constexpr auto kNamed = std::to_array<KeyRow>({
    {Qt::Key_Backspace, 8},     {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},       {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},       {Qt::Key_Enter, 13},
    {Qt::Key_Shift, kShiftKey}, {Qt::Key_Control, kControlKey},
    {Qt::Key_Alt, kMenuKey},    {Qt::Key_AltGr, kMenuKey},
    {Qt::Key_Pause, 19},        {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},       {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},          {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},         {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},        {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},        {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},       {Qt::Key_Help, 47},
    {Qt::Key_Super_L, 91},      {Qt::Key_Super_R, 92},
    {Qt::Key_Menu, 93},         {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
});

/// Characters of the number block; its other keys are those of the same name elsewhere.
constexpr auto kKeypad = std::to_array<KeyRow>({
    {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, 107},
    {Qt::Key_Comma, 110},  // the decimal point of many countries
    {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},
    {Qt::Key_Slash, 111},
});

/// Characters that share a key on the US keyboard.
constexpr auto kCharacters = std::to_array<KeyRow>({
    {Qt::Key_Exclam, '1'},      {Qt::Key_At, '2'},           {Qt::Key_NumberSign, '3'},
    {Qt::Key_Dollar, '4'},      {Qt::Key_Percent, '5'},      {Qt::Key_AsciiCircum, '6'},
    {Qt::Key_Ampersand, '7'},   {Qt::Key_Asterisk, '8'},     {Qt::Key_ParenLeft, '9'},
    {Qt::Key_ParenRight, '0'},  {Qt::Key_Semicolon, 186},    {Qt::Key_Colon, 186},
    {Qt::Key_Equal, 187},       {Qt::Key_Plus, 187},         {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},        {Qt::Key_Minus, 189},        {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},      {Qt::Key_Greater, 190},      {Qt::Key_Slash, 191},
    {Qt::Key_Question, 191},    {Qt::Key_QuoteLeft, 192},    {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219},    {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},         {Qt::Key_BracketRight, 221}, {Qt::Key_BraceRight, 221},
    {Qt::Key_Apostrophe, 222},  {Qt::Key_QuoteDbl, 222},
});

std::int16_t Find(std::span<const KeyRow> rows, int key) {
    const auto row = std::ranges::find(rows, key, &KeyRow::key);
    return row == rows.end() ? std::int16_t{0} : row->code;
}

/// The digit of a key in the row above the letters, whatever the layout has put there.
std::int16_t DigitInRow(quint32 scan_code) {
    constexpr quint32 kOne = 10;
    constexpr quint32 kZero = 19;
    if (scan_code < kOne || scan_code > kZero) return 0;
    return scan_code == kZero ? std::int16_t{'0'}
                              : static_cast<std::int16_t>('1' + scan_code - kOne);
}

constexpr bool IsBetween(int key, int first, int last) {
    return key >= first && key <= last;
}

}  // namespace

std::int16_t KeyCode(const QKeyEvent& event) {
    const int key = event.key();
    const auto counted = [key](int first, int code) {
        return static_cast<std::int16_t>(code + key - first);
    };
    if (const auto code = Find(kNamed, key); code != 0) return code;
    if (IsBetween(key, Qt::Key_F1, Qt::Key_F24)) return counted(Qt::Key_F1, 112);
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (IsBetween(key, Qt::Key_0, Qt::Key_9)) return counted(Qt::Key_0, 96);
        return Find(kKeypad, key);
    }
    if (const auto digit = DigitInRow(event.nativeScanCode()); digit != 0) return digit;
    if (IsBetween(key, Qt::Key_0, Qt::Key_9)) return counted(Qt::Key_0, '0');
    if (IsBetween(key, Qt::Key_A, Qt::Key_Z)) return counted(Qt::Key_A, 'A');
    return Find(kCharacters, key);
}

std::int16_t ShiftState(const QKeyEvent& event) {
    const auto held = event.modifiers();
    const auto code = KeyCode(event);
    int state = 0;
    if (held.testFlag(Qt::ShiftModifier) || code == kShiftKey) state += 1;
    if (held.testFlag(Qt::ControlModifier) || code == kControlKey) state += 2;
    if (held.testFlag(Qt::AltModifier) || code == kMenuKey) state += 4;
    return static_cast<std::int16_t>(state);
}

}  // namespace corvane::linux_desktop
