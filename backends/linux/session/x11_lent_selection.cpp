// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_lent_selection.h"

#include <cstddef>
#include <utility>

namespace corvane::linux_desktop {
namespace {

constexpr std::size_t kMost = std::size_t{16} << 20U;  // bytes

}  // namespace

X11LentSelection::X11LentSelection(std::string_view selection, std::function<void()> while_waiting)
    : reader_(selection, std::move(while_waiting)), owner_(selection) {}

bool X11LentSelection::CanLend(Time end) {
    // While we keep it, it is from the last time, or not given back yet.
    if (owner_.Keeps()) return true;
    auto whole = reader_.ReadAll(end, kMost);
    if (!whole.complete) return false;
    copied_ = std::move(whole.copied);
    return true;
}

bool X11LentSelection::Lend(std::u32string_view text, Time end) {
    if (!CanLend(end)) return false;
    Copied lent = CopiedText(text);
    // Programs that list what was copied leave this out: the person has not copied it.
    lent.push_back({"x-kde-passwordManagerHint", "x-kde-passwordManagerHint", "secret"});
    return owner_.Offer(std::move(lent));
}

void X11LentSelection::GiveBack(std::chrono::milliseconds delay) {
    owner_.OfferLater(copied_, delay);
}

}  // namespace corvane::linux_desktop
