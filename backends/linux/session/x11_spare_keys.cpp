// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_spare_keys.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace corvane::linux_desktop {

std::vector<X11SpareKeys::Loan> X11SpareKeys::Missing(std::span<const xcb_keysym_t> symbols) const {
    std::vector<Loan> missing;
    for (const xcb_keysym_t symbol : symbols) {
        const auto bears_it = [symbol](const Loan& loan) {
            return loan.small == symbol || loan.capital == symbol;
        };
        if (std::ranges::any_of(loans_, bears_it) || std::ranges::any_of(missing, bears_it))
            continue;
        // A letter's key bears the pair, so that Shift does to it what it does to any letter.
        const Loan pair{.code = 0,
                        .small = xkb_keysym_to_lower(symbol),
                        .capital = xkb_keysym_to_upper(symbol)};
        missing.push_back(bears_it(pair) ? pair : Loan{0, symbol, symbol});
    }
    return missing;
}

bool X11SpareKeys::Suffice(std::span<const xcb_keysym_t> symbols,
                           const X11Keyboard& keyboard) const {
    const std::size_t wanted = Missing(symbols).size();
    return wanted <= keyboard.spare().size() && wanted + loans_.size() <= kMost &&
           std::ranges::find(symbols, XCB_NO_SYMBOL) == symbols.end();
}

void X11SpareKeys::Lend(std::span<const xcb_keysym_t> symbols, const X11Keyboard& keyboard) {
    // The key that has been free for longest first: a program that lags behind may still have to
    // look up the others.
    std::vector<xcb_keycode_t> spare = keyboard.spare();
    std::ranges::rotate(spare, std::ranges::upper_bound(spare, last_));
    auto code = spare.begin();
    for (Loan& loan : Missing(symbols)) {
        if (code == spare.end()) return;
        loan.code = last_ = *code++;
        SetKey(loan.code, std::array{loan.small, loan.capital});
        loans_.push_back(loan);
    }
    x_.Sync();
}

std::optional<KeyPosition> X11SpareKeys::Find(xcb_keysym_t symbol) const {
    for (const Loan& loan : loans_) {
        if (symbol == loan.small) return KeyPosition{.code = loan.code};
        if (symbol == loan.capital) return KeyPosition{.code = loan.code, .shift = true};
    }
    return std::nullopt;
}

void X11SpareKeys::GiveBack(std::size_t keep) {
    if (loans_.size() <= keep) return;
    for (; loans_.size() > keep; loans_.pop_back())
        if (StillBears(loans_.back()))
            SetKey(loans_.back().code, std::array<xcb_keysym_t, 1>{XCB_NO_SYMBOL});
    x_.Sync();
}

void X11SpareKeys::DropLost() {
    std::erase_if(loans_, [this](const Loan& loan) { return !StillBears(loan); });
}

void X11SpareKeys::SetKey(xcb_keycode_t code, std::span<const xcb_keysym_t> symbols) const {
    xcb_change_keyboard_mapping(x_.connection(), 1, code, static_cast<std::uint8_t>(symbols.size()),
                                symbols.data());
}

bool X11SpareKeys::StillBears(const Loan& loan) const {
    // The person may have chosen another layout meanwhile, in which the key means something.
    const auto map = Answer<xcb_get_keyboard_mapping_reply>(
        x_, xcb_get_keyboard_mapping(x_.connection(), loan.code, 1));
    if (!map || map->keysyms_per_keycode == 0) return false;
    return *xcb_get_keyboard_mapping_keysyms(map.get()) == loan.small;
}

}  // namespace corvane::linux_desktop
