// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_window_manager.h"

#include <algorithm>
#include <thread>

namespace corvane::linux_desktop {
namespace {

using std::chrono::steady_clock;

constexpr std::uint32_t kPager = 2;
constexpr std::uint32_t kIconicState = 3;
constexpr std::uint32_t kRemove = 0;
constexpr std::uint32_t kAdd = 1;
// Managers need 1 to 5 ms for an act.
constexpr std::chrono::milliseconds kBetweenLooks{2};

}  // namespace

X11WindowManager::X11WindowManager(const X11Connection& x, const X11WindowFacts& facts)
    : x_(x),
      facts_(facts),
      time_(x),
      turn_(x),
      active_(x.Atom("_NET_ACTIVE_WINDOW")),
      current_desktop_(x.Atom("_NET_CURRENT_DESKTOP")),
      change_state_(x.Atom("WM_CHANGE_STATE")),
      state_(x.Atom("_NET_WM_STATE")),
      maximised_across_(x.Atom("_NET_WM_STATE_MAXIMIZED_HORZ")),
      maximised_down_(x.Atom("_NET_WM_STATE_MAXIMIZED_VERT")),
      close_(x.Atom("_NET_CLOSE_WINDOW")) {}

SessionAnswer X11WindowManager::Activate(WindowId window) {
    // Not all managers turn to the window's virtual desktop themselves.
    if (const auto desktop = facts_.OtherDesktopOf(window))
        Ask(x_.root(), current_desktop_, {*desktop, time_.Now()});
    const auto in_front = [&] {
        const WindowId active = facts_.Active();
        // Some managers give the front to the box that keeps the person from using the window.
        return (active == window || facts_.IsModalBoxOf(active, window)) &&
               !facts_.IsMinimised(window);
    };
    const bool box_was_in_front = facts_.IsModalBoxOf(facts_.Active(), window);
    // A program that has just started may take the front in between.
    constexpr int kTimesAsked = 4;
    auto answer = SessionAnswer::Denied;
    for (int asked = 0; asked < kTimesAsked && answer != SessionAnswer::Done; ++asked) {
        // This also brings a minimised window back.
        Ask(window, active_, {kPager, time_.Now()});
        // Of a box that stays nobody tells; one that has to let the window by is no answer yet.
        if (box_was_in_front)
            (void)turn_.Await(steady_clock::now() + Windows::kPatience / kTimesAsked);
        answer = WaitFor(in_front, Windows::kPatience / kTimesAsked);
    }
    return answer;
}

SessionAnswer X11WindowManager::Minimise(WindowId window) {
    Ask(window, change_state_, {kIconicState});
    return WaitFor([&] { return facts_.IsMinimised(window); });
}

SessionAnswer X11WindowManager::Maximise(WindowId window) {
    AskForSize(window, kAdd);
    return WaitFor([&] { return facts_.IsMaximised(window); });
}

SessionAnswer X11WindowManager::NormalSize(WindowId window) {
    AskForSize(window, kRemove);
    return WaitFor([&] { return !facts_.IsMaximised(window); });
}

SessionAnswer X11WindowManager::Close(WindowId window) {
    Ask(window, close_, {time_.Now(), kPager});
    return SessionAnswer::Done;
}

void X11WindowManager::Ask(WindowId window, xcb_atom_t request, const Data& data) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = request;
    std::ranges::copy(data, message.data.data32);
    xcb_send_event(x_.connection(), 0, x_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(x_.connection());
}

void X11WindowManager::AskForSize(WindowId window, std::uint32_t action) const {
    Ask(window, state_, {action, maximised_across_, maximised_down_, kPager});
}

SessionAnswer X11WindowManager::WaitFor(const std::function<bool()>& effect,
                                        std::chrono::milliseconds patience) const {
    const auto end = steady_clock::now() + patience;
    while (!effect()) {
        if (steady_clock::now() >= end || !x_.usable()) return SessionAnswer::Denied;
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return SessionAnswer::Done;
}

}  // namespace corvane::linux_desktop
