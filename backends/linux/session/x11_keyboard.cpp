// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_keyboard.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace corvane::linux_desktop {
namespace {

constexpr unsigned kLevels = 4;
constexpr unsigned kShiftLevel = 1;   // bit of a level: Shift is held
constexpr unsigned kLevel3Level = 2;  // bit of a level: AltGr is held

/// Rows of the modifier mapping.
enum ModifierRow : std::size_t { kShiftRow, kLockRow, kControlRow, kFirstOtherRow, kRows = 8 };

/// In the order of NamedKey.
constexpr auto kNamedSymbols = std::to_array<xcb_keysym_t>({
    XKB_KEY_BackSpace,   XKB_KEY_Caps_Lock, XKB_KEY_Delete,    XKB_KEY_Down,    XKB_KEY_End,
    XKB_KEY_Return,      XKB_KEY_Escape,    XKB_KEY_Help,      XKB_KEY_Home,    XKB_KEY_Insert,
    XKB_KEY_Left,        XKB_KEY_Num_Lock,  XKB_KEY_Page_Down, XKB_KEY_Page_Up, XKB_KEY_Right,
    XKB_KEY_Scroll_Lock, XKB_KEY_Tab,       XKB_KEY_Up,        XKB_KEY_F1,      XKB_KEY_F2,
    XKB_KEY_F3,          XKB_KEY_F4,        XKB_KEY_F5,        XKB_KEY_F6,      XKB_KEY_F7,
    XKB_KEY_F8,          XKB_KEY_F9,        XKB_KEY_F10,       XKB_KEY_F11,     XKB_KEY_F12,
});
static_assert(kNamedSymbols.size() == static_cast<std::size_t>(NamedKey::F12) + 1);

}  // namespace

X11Keyboard::X11Keyboard(const X11Connection& x) {
    if (const auto pointer =
            Answer<xcb_query_pointer_reply>(x, xcb_query_pointer(x.connection(), x.root())))
        state_ = pointer->mask;
    // The server tells the layout in force in these two bits; the core map holds the first two.
    group_ = (state_ >> 13U & 3U) == 1 ? 1 : 0;
    ReadLayout(x);
    ReadModifiers(x);
}

void X11Keyboard::ReadLayout(const X11Connection& x) {
    const xcb_setup_t* setup = xcb_get_setup(x.connection());
    first_code_ = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto map = Answer<xcb_get_keyboard_mapping_reply>(
        x, xcb_get_keyboard_mapping(x.connection(), setup->min_keycode, count));
    if (!map) return;
    columns_ = map->keysyms_per_keycode;
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    symbols_.assign(symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(map.get()));
}

void X11Keyboard::ReadModifiers(const X11Connection& x) {
    const auto modifiers =
        Answer<xcb_get_modifier_mapping_reply>(x, xcb_get_modifier_mapping(x.connection()));
    const auto pressed = Answer<xcb_query_keymap_reply>(x, xcb_query_keymap(x.connection()));
    if (!modifiers || !pressed) return;
    std::ranges::copy(pressed->keys, down_.begin());

    const std::size_t width = modifiers->keycodes_per_modifier;
    const std::span codes(xcb_get_modifier_mapping_keycodes(modifiers.get()), kRows * width);
    const auto choose = [](xcb_keycode_t& chosen, xcb_keycode_t code) {
        if (chosen == 0) chosen = code;
    };
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const xcb_keycode_t code = codes[i];
        if (code == 0) continue;
        const std::size_t row = i / width;
        const bool locks = row == kLockRow || Bears(code, XKB_KEY_Num_Lock);
        if (IsDown(code) && !locks) held_.push_back(code);
        if (row == kShiftRow) choose(shift_, code);
        if (row == kLockRow && (state_ & XCB_MOD_MASK_LOCK) != 0) choose(lock_in_force_, code);
        if (row == kControlRow) choose(control_, code);
        if (row < kFirstOtherRow) continue;
        if (Bears(code, XKB_KEY_Alt_L)) choose(alt_, code);
        if (Bears(code, XKB_KEY_ISO_Level3_Shift)) choose(level3_, code);
    }
}

xcb_keysym_t X11Keyboard::Symbol(unsigned code, unsigned level) const {
    // Two columns of the first layout, two of the second, then the AltGr columns in the same way.
    const unsigned column = (level & kLevel3Level) * 2 + group_ * 2 + (level & kShiftLevel);
    if (column >= columns_) return XCB_NO_SYMBOL;
    return symbols_[(code - first_code_) * columns_ + column];
}

bool X11Keyboard::Bears(unsigned code, xcb_keysym_t symbol) const {
    for (unsigned column = 0; column < columns_; ++column)
        if (symbols_[(code - first_code_) * columns_ + column] == symbol) return true;
    return false;
}

std::optional<KeyPosition> X11Keyboard::Find(const KeyStroke& stroke) const {
    const auto* character = std::get_if<char32_t>(&stroke.key);
    const auto matches = [&](xcb_keysym_t symbol) {
        if (symbol == XCB_NO_SYMBOL) return false;
        if (character != nullptr) return xkb_keysym_to_utf32(symbol) == *character;
        return symbol == kNamedSymbols.at(static_cast<std::size_t>(std::get<NamedKey>(stroke.key)));
    };
    const unsigned end = columns_ == 0
                             ? first_code_
                             : first_code_ + static_cast<unsigned>(symbols_.size()) / columns_;
    // The fewest modifiers first.
    for (unsigned level = 0; level < kLevels; ++level) {
        const bool level3 = (level & kLevel3Level) != 0;
        if (level3 && level3_ == 0) break;
        for (unsigned code = first_code_; code < end; ++code)
            if (matches(Symbol(code, level)))
                return KeyPosition{static_cast<xcb_keycode_t>(code), (level & kShiftLevel) != 0,
                                   level3};
    }
    return std::nullopt;
}

}  // namespace corvane::linux_desktop
