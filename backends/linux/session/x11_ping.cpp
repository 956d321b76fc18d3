// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_ping.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kBetweenEvents{2};  // for our own windows, whose loop must go on

/// A question of which the answer is fetched later, so that several share one wait.
xcb_get_property_cookie_t AskForProperty(const X11Connection& x, xcb_window_t window,
                                         xcb_atom_t property, xcb_atom_t type) {
    return xcb_get_property(x.connection(), 0, window, property, type, 0, 64);
}

std::string BytesOf(const X11Connection& x, xcb_get_property_cookie_t cookie) {
    const auto value = Answer<xcb_get_property_reply>(x, cookie);
    if (!value) return {};
    return {static_cast<const char*>(xcb_get_property_value(value.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(value.get()))};
}

std::vector<std::uint32_t> Numbers(const std::string& bytes) {
    std::vector<std::uint32_t> numbers(bytes.size() / sizeof(std::uint32_t));
    if (!numbers.empty())
        std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(std::uint32_t));
    return numbers;
}

}  // namespace

X11Ping::X11Ping(const X11Connection& x, std::function<void()> do_events)
    : x_(x),
      do_events_(std::move(do_events)),
      wm_protocols_(x.Atom("WM_PROTOCOLS")),
      net_wm_ping_(x.Atom("_NET_WM_PING")),
      net_wm_pid_(x.Atom("_NET_WM_PID")) {}

X11Ping::Target X11Ping::FindTarget(const Target& last) const {
    const auto focus = Answer<xcb_get_input_focus_reply>(x_, xcb_get_input_focus(x_.connection()));
    if (!focus) return {};
    if (focus->focus == last.focus) return last;
    // The focus may be on a window inside the one that the window manager knows.
    xcb_window_t window = focus->focus;
    Target silent{.focus = focus->focus, .window = {}, .window_class = {}};
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != x_.root()) {
        Target target = Describe(window);
        target.focus = focus->focus;
        if (target.answers) return target;
        if (!target.window_class.empty()) silent = std::move(target);
        const auto tree = Answer<xcb_query_tree_reply>(x_, xcb_query_tree(x_.connection(), window));
        if (!tree) break;
        window = tree->parent;
    }
    return silent;
}

bool X11Ping::Ask(const Target& target, int questions, Time end) {
    ListenForAnswers(true);
    while (questions > 0 && RoundTrip(target, end)) --questions;
    ListenForAnswers(false);
    x_.DropEvents();
    return questions == 0;
}

void X11Ping::Pause(const Target& target, Time end) const {
    for (auto now = steady_clock::now(); now < end; now = steady_clock::now()) {
        WaitForEvents(target, std::chrono::ceil<milliseconds>(end - now));
        x_.DropEvents();
    }
}

X11Ping::Target X11Ping::Describe(xcb_window_t window) const {
    const auto ask_protocols = AskForProperty(x_, window, wm_protocols_, XCB_ATOM_ATOM);
    const auto ask_process = AskForProperty(x_, window, net_wm_pid_, XCB_ATOM_CARDINAL);
    const auto ask_class = AskForProperty(x_, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING);
    const auto protocols = Numbers(BytesOf(x_, ask_protocols));
    const auto processes = Numbers(BytesOf(x_, ask_process));
    const pid_t process = processes.empty() ? 0 : static_cast<pid_t>(processes.front());
    // Two names, each ended by a zero: of the window and of its class.
    std::string name = BytesOf(x_, ask_class);
    name.erase(0, name.find('\0') == std::string::npos ? name.size() : name.find('\0') + 1);
    name.resize(std::min(name.find('\0'), name.size()));
    return {.focus = window,
            .window = window,
            .window_class = std::move(name),
            .answers = std::ranges::find(protocols, net_wm_ping_) != protocols.end(),
            .process = process,
            .ours = process == ::getpid()};
}

void X11Ping::ListenForAnswers(bool listen) const {
    // Answers come with either mask, depending on the toolkit.
    const std::uint32_t mask =
        listen ? XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY : 0U;
    xcb_change_window_attributes(x_.connection(), x_.root(), XCB_CW_EVENT_MASK, &mask);
    xcb_flush(x_.connection());
}

bool X11Ping::RoundTrip(const Target& target, Time end) {
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
