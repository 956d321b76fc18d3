// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "linux/session/keys.h"
#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// A key of the keyboard and what must be held with it.
struct KeyPosition {
    xcb_keycode_t code = 0;
    bool shift = false;
    bool level3 = false;  ///< the key that many layouts call AltGr
};

/// The symbol that a stroke asks for; XCB_NO_SYMBOL for a character that has none.
[[nodiscard]] xcb_keysym_t SymbolOf(const KeyStroke& stroke);

/// The keyboard as it is laid out, and what is held on it, at the moment of construction.
class X11Keyboard {
public:
    explicit X11Keyboard(const X11Connection& x);

    /// The key of a stroke in the layout in force, with Caps Lock off; never a dead key.
    [[nodiscard]] std::optional<KeyPosition> Find(const KeyStroke& stroke) const;

    /// Key codes of the modifiers; 0 where the keyboard has none.
    [[nodiscard]] xcb_keycode_t shift() const { return shift_.code; }
    [[nodiscard]] xcb_keycode_t control() const { return control_.code; }
    [[nodiscard]] xcb_keycode_t alt() const { return alt_.code; }
    [[nodiscard]] xcb_keycode_t level3() const { return level3_.code; }

    /// Whether a key was down.
    [[nodiscard]] bool IsDown(xcb_keycode_t code) const {
        return (down_[code / 8U] >> (code % 8U) & 1U) != 0;
    }
    /// Modifier keys that were held, locks aside.
    [[nodiscard]] const std::vector<xcb_keycode_t>& held() const { return held_; }
    /// The key that takes Caps Lock off; 0 if it is not on.
    [[nodiscard]] xcb_keycode_t lock_in_force() const { return lock_in_force_; }
    /// Key codes that bear nothing in any layout of the person's.
    [[nodiscard]] const std::vector<xcb_keycode_t>& spare() const { return spare_; }

private:
    struct Release {
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
        void operator()(xkb_state* state) const { xkb_state_unref(state); }
    };
    using KeymapPtr = std::unique_ptr<xkb_keymap, Release>;
    using StatePtr = std::unique_ptr<xkb_state, Release>;
    struct Modifier {
        xcb_keycode_t code = 0;
        xkb_mod_mask_t mask = 0;
    };

    void ReadModifiers();
    void ReadModifier(xcb_keycode_t code);
    void ReadSymbols();
    void ReadSymbols(xkb_state& state, KeyPosition level);
    /// A keyboard on which nothing is held or locked.
    [[nodiscard]] StatePtr Untouched() const;
    [[nodiscard]] xkb_mod_mask_t MaskOf(const char* modifier) const;

    KeymapPtr keymap_;
    std::vector<xcb_keycode_t> codes_;  // all of them
    xkb_layout_index_t layout_ = 0;
    xkb_mod_mask_t depressed_ = 0;
    xkb_mod_mask_t locked_ = 0;
    Modifier shift_, control_, alt_, level3_;
    xcb_keycode_t lock_in_force_ = 0;
    std::array<std::uint8_t, 32> down_{};  // a bit for each key code
    std::vector<xcb_keycode_t> held_, spare_;
    std::unordered_map<xcb_keysym_t, KeyPosition> symbols_;
    std::unordered_map<char32_t, KeyPosition> characters_;
};

}  // namespace corvane::linux_desktop
