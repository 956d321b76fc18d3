// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_ping.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "linux/session/x11_properties.h"

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kBound{250};
// Some programs answer the first question before the keys in front of it; none the second.
constexpr int kRoundTrips = 2;
// For programs that don't take part. Measured with terminals: most take their keys within a few.
constexpr milliseconds kWithoutAnswer{40};
constexpr milliseconds kBetweenEvents{2};  // for our own windows, whose loop must go on

}  // namespace

X11Ping::X11Ping(const X11Connection& x, std::function<void()> do_events)
    : x_(x),
      do_events_(std::move(do_events)),
      wm_protocols_(x.Atom("WM_PROTOCOLS")),
      net_wm_ping_(x.Atom("_NET_WM_PING")),
      net_wm_pid_(x.Atom("_NET_WM_PID")) {}

void X11Ping::WaitForFocusWindow() {
    const Target target = FindTarget();
    const auto start = steady_clock::now();
    if (!target.answers) {
        const auto end = start + kWithoutAnswer;
        for (auto now = start; now < end; now = steady_clock::now())
            WaitForEvents(target, std::chrono::ceil<milliseconds>(end - now));
        return;
    }
    ListenForAnswers(true);
    for (int trip = 0; trip < kRoundTrips && RoundTrip(target, start + kBound); ++trip) {
    }
    ListenForAnswers(false);
    x_.DropEvents();
}

X11Ping::Target X11Ping::FindTarget() const {
    const auto focus = Answer<xcb_get_input_focus_reply>(x_, xcb_get_input_focus(x_.connection()));
    if (!focus) return {};
    // The focus may be on a window inside the one that the window manager knows.
    xcb_window_t window = focus->focus;
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != x_.root()) {
        const Target target = Describe(window);
        if (target.answers) return target;
        const auto tree = Answer<xcb_query_tree_reply>(x_, xcb_query_tree(x_.connection(), window));
        if (!tree) break;
        window = tree->parent;
    }
    return {};
}

X11Ping::Target X11Ping::Describe(xcb_window_t window) const {
    const auto protocols = ReadNumbers(x_, window, wm_protocols_, XCB_ATOM_ATOM);
    const auto process = ReadNumbers(x_, window, net_wm_pid_, XCB_ATOM_CARDINAL);
    return {.window = window,
            .answers = std::ranges::find(protocols, net_wm_ping_) != protocols.end(),
            .ours = !process.empty() && std::cmp_equal(process.front(), ::getpid())};
}

void X11Ping::ListenForAnswers(bool listen) const {
    // Answers come with either mask, depending on the toolkit.
    const std::uint32_t mask =
        listen ? XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY : 0U;
    xcb_change_window_attributes(x_.connection(), x_.root(), XCB_CW_EVENT_MASK, &mask);
    x_.Sync();
}

bool X11Ping::RoundTrip(const Target& target, steady_clock::time_point end) {
    xcb_client_message_event_t question{};
    question.response_type = XCB_CLIENT_MESSAGE;
    question.format = 32;
    question.window = target.window;
    question.type = wm_protocols_;
    question.data.data32[0] = net_wm_ping_;
    question.data.data32[1] = ++serial_;
    question.data.data32[2] = target.window;
    xcb_send_event(x_.connection(), 0, target.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&question));
    xcb_flush(x_.connection());
    while (!AnswerHasArrived(serial_)) {
        const auto now = steady_clock::now();
        if (now >= end || !x_.usable()) return false;
        WaitForEvents(target, std::chrono::ceil<milliseconds>(end - now));
    }
    return true;
}

bool X11Ping::AnswerHasArrived(std::uint32_t serial) const {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())}) {
        if ((event->response_type & 0x7FU) != XCB_CLIENT_MESSAGE) continue;
        const auto& answer = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        if (answer.type == wm_protocols_ && answer.data.data32[0] == net_wm_ping_ &&
            answer.data.data32[1] == serial)
            return true;
    }
    return false;
}

void X11Ping::WaitForEvents(const Target& target, milliseconds most) const {
    if (target.ours) {
        do_events_();
        most = std::min(most, kBetweenEvents);
    }
    pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
    ::poll(&connection, 1, static_cast<int>(most.count()));
}

}  // namespace corvane::linux_desktop
