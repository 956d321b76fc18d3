// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_paste.h"

#include <algorithm>
#include <array>
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

bool IsTerminal(const X11Ping::Target& target) {
    return std::ranges::find(kTerminals, target.window_class) != kTerminals.end();
}

}  // namespace

X11Paste::X11Paste(std::function<void()> do_events) : do_events_(std::move(do_events)) {}

bool X11Paste::IsSurerThanLentKeys(const X11Ping::Target& target) {
    return !target.answers && IsTerminal(target);
}

bool X11Paste::TakesShiftInsert(const X11Ping::Target& target) {
    // What takes no part in the protocol is older than Ctrl+V.
    return !target.answers || IsTerminal(target);
}

KeyStroke X11Paste::StrokeFor(const X11Ping::Target& target) {
    if (TakesShiftInsert(target)) return {.key = NamedKey::Insert, .shift = true};
    return {.key = U'v', .control = true};
}

void X11Paste::Prepare(const X11Ping::Target& target) {
    if (!clipboard_) clipboard_.emplace("CLIPBOARD", do_events_);
    // With Shift+Insert some terminals paste the one, some the other. Elsewhere PRIMARY is left
    // alone: losing it takes the highlighting off the text that is to be replaced.
    primary_is_lent_ = TakesShiftInsert(target);
    if (primary_is_lent_ && !primary_) primary_.emplace("PRIMARY", do_events_);
}

bool X11Paste::CanOffer(const X11Ping::Target& target, Time end) {
    Prepare(target);
    return clipboard_->CanLend(end) && (!primary_is_lent_ || primary_->CanLend(end));
}

bool X11Paste::Offer(std::u32string_view text, const X11Ping::Target& target, Time end) {
    Prepare(target);
    if (clipboard_->Lend(text, end) && (!primary_is_lent_ || primary_->Lend(text, end)))
        return true;
    GiveBack(true);
    return false;
}

void X11Paste::StrokeComes() {
    clipboard_->CountFromNow();
    if (primary_is_lent_) primary_->CountFromNow();
}

bool X11Paste::FetchedBy(const X11Ping::Target& target) {
    return clipboard_->FetchedBy(target.focus) ||
           (primary_is_lent_ && primary_->FetchedBy(target.focus));
}

bool X11Paste::Fetched() {
    return clipboard_->Fetched() || (primary_is_lent_ && primary_->Fetched());
}

void X11Paste::GiveBack(bool fetched) {
    const milliseconds delay = fetched ? milliseconds(0) : milliseconds(kForOneThatHangs);
    clipboard_->GiveBack(delay);
    if (primary_is_lent_) primary_->GiveBack(delay);
}

void X11Paste::HandOver(milliseconds patience) {
    if (!clipboard_) return;
    clipboard_->GiveBack(milliseconds(0));
    if (primary_) primary_->GiveBack(milliseconds(0));
    clipboard_->HandOver(patience);
}

}  // namespace corvane::linux_desktop
