// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <string_view>

#include "linux/session/clipboard.h"
#include "linux/session/x11_selection_owner.h"
#include "linux/session/x11_selection_reader.h"

namespace corvane::linux_desktop {

/// A selection of the session that holds a text of ours for a moment and then again what the person
/// had copied: its text and the other forms that people paste, 16 MiB in all. We keep that from
/// then on, since it can't be handed back to the program from which it came.
class X11LentSelection {
public:
    /// `while_waiting` lets our own windows work: it may be one of them that keeps the selection.
    X11LentSelection(std::string_view selection, std::function<void()> while_waiting);

    using Time = std::chrono::steady_clock::time_point;

    /// Whether all that is there can be read until `end`: else it would be lost.
    bool CanLend(Time end);
    /// Reads what is there, until `end` at most, and puts the text there. False, and nothing is
    /// taken, if that can't be.
    bool Lend(std::u32string_view text, Time end);
    /// Fetches count from now on, in place of from the lending on.
    void CountFromNow() { owner_.CountFromNow(); }
    /// Whether the program to which that window belongs has fetched the text.
    [[nodiscard]] bool FetchedBy(xcb_window_t window) { return owner_.FetchedBy(window) > 0; }
    /// Whether any program has.
    [[nodiscard]] bool Fetched() { return owner_.Fetched() > 0; }
    /// Puts back what was there, once `delay` has passed.
    void GiveBack(std::chrono::milliseconds delay);
    /// Has the session keep what we have put back, once we are gone; `patience` at most.
    void HandOver(std::chrono::milliseconds patience) { owner_.HandOver(patience); }

private:
    X11SelectionReader reader_;
    X11SelectionOwner owner_;
    Copied copied_;  // by the person
};

}  // namespace corvane::linux_desktop
