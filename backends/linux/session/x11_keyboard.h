// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <optional>
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

/// The keyboard as it is laid out at the moment of construction.
class X11Keyboard {
public:
    explicit X11Keyboard(const X11Connection& x);

    [[nodiscard]] std::optional<KeyPosition> Find(const KeyStroke& stroke) const;

    /// Key codes of the modifiers; 0 where the keyboard has none.
    [[nodiscard]] xcb_keycode_t shift() const { return shift_; }
    [[nodiscard]] xcb_keycode_t control() const { return control_; }
    [[nodiscard]] xcb_keycode_t alt() const { return alt_; }
    [[nodiscard]] xcb_keycode_t level3() const { return level3_; }

    /// Whether a key was down.
    [[nodiscard]] bool IsDown(xcb_keycode_t code) const {
        return (down_[code / 8U] >> (code % 8U) & 1U) != 0;
    }
    /// Modifier keys that were down, locks aside.
    [[nodiscard]] const std::vector<xcb_keycode_t>& held() const { return held_; }
    /// The key that takes Caps Lock off; 0 if it is not on.
    [[nodiscard]] xcb_keycode_t lock_in_force() const { return lock_in_force_; }

private:
    void ReadLayout(const X11Connection& x);
    void ReadModifiers(const X11Connection& x);
    [[nodiscard]] xcb_keysym_t Symbol(unsigned code, unsigned level) const;
    [[nodiscard]] bool Bears(unsigned code, xcb_keysym_t symbol) const;

    unsigned first_code_ = 0;
    unsigned columns_ = 0;
    unsigned group_ = 0;
    std::vector<xcb_keysym_t> symbols_;
    std::uint16_t state_ = 0;
    xcb_keycode_t shift_ = 0, control_ = 0, alt_ = 0, level3_ = 0, lock_in_force_ = 0;
    std::array<std::uint8_t, 32> down_{};  // a bit for each key code
    std::vector<xcb_keycode_t> held_;
};

}  // namespace corvane::linux_desktop
