// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_paste.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;

constexpr std::chrono::seconds kForOneThatHangs{10};

/// Classes of the windows of terminals, and of an editor with a Ctrl+V of its own.
constexpr auto kTerminals = std::to_array<std::string_view>({
    "Alacritty",      "Emacs",       "Gnome-terminal", "Konsole",     "Lxterminal",
    "Mate-terminal",  "Qterminal",   "Rxvt",           "St",          "Terminator",
    "Tilda",          "Tilix",       "URxvt",          "UXTerm",      "XTerm",
    "Xfce4-terminal", "Yakuake",     "kitty",          "konsole",     "org.wezfurlong.wezterm",
    "qterminal",      "st-256color", "terminology",    "Terminology", "yakuake",
});

}  // namespace

X11Paste::X11Paste(const X11Connection& x, std::function<void()> do_events)
    : x_(x), do_events_(std::move(do_events)) {}

bool X11Paste::IsTerminal(const X11Ping::Target& target) const {
    // What takes no part in the protocol is older than Ctrl+V.
    if (!target.answers) return true;
    const auto property = Answer<xcb_get_property_reply>(
        x_, xcb_get_property(x_.connection(), 0, target.window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                             0, 64));
    if (!property || property->format != 8) return false;
    // Two names, each ended by a zero: of the window and of its class.
    const std::string_view names(
        static_cast<const char*>(xcb_get_property_value(property.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(property.get())));
    const auto end_of_first = names.find('\0');
    if (end_of_first == std::string_view::npos) return false;
    std::string_view window_class = names.substr(end_of_first + 1);
    window_class = window_class.substr(0, window_class.find('\0'));
    return std::ranges::find(kTerminals, window_class) != kTerminals.end();
}

KeyStroke X11Paste::StrokeFor(const X11Ping::Target& target) const {
    if (IsTerminal(target)) return {.key = NamedKey::Insert, .shift = true};
    return {.key = U'v', .control = true};
}

bool X11Paste::Offer(std::u32string_view text, const X11Ping::Target& target, Time end) {
    if (!clipboard_) clipboard_.emplace("CLIPBOARD", do_events_);
    // With Shift+Insert some terminals paste the one, some the other. Elsewhere PRIMARY is left
    // alone: losing it takes the highlighting off the text that is to be replaced.
    primary_is_lent_ = IsTerminal(target);
    if (primary_is_lent_ && !primary_) primary_.emplace("PRIMARY", do_events_);
    return clipboard_->Lend(text, end) && (!primary_is_lent_ || primary_->Lend(text, end));
}

bool X11Paste::FetchedBy(const X11Ping::Target& target) {
    return clipboard_->FetchedBy(target.focus) ||
           (primary_is_lent_ && primary_->FetchedBy(target.focus));
}

void X11Paste::GiveBack(bool fetched) {
    const milliseconds delay = fetched ? milliseconds(0) : milliseconds(kForOneThatHangs);
    clipboard_->GiveBack(delay);
    if (primary_is_lent_) primary_->GiveBack(delay);
}

}  // namespace corvane::linux_desktop
