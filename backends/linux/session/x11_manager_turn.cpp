// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_manager_turn.h"

#include <thread>

#include "linux/session/x11_properties.h"

namespace corvane::linux_desktop {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenLooks{1};

}  // namespace

X11ManagerTurn::X11ManagerTurn(const X11Connection& x)
    : x_(x),
      question_(x.Atom("_NET_REQUEST_FRAME_EXTENTS")),
      answer_(x.Atom("_NET_FRAME_EXTENTS")),
      window_(xcb_generate_id(x.connection())) {
    xcb_create_window(x.connection(), XCB_COPY_FROM_PARENT, window_, x.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
}

X11ManagerTurn::~X11ManagerTurn() {
    xcb_destroy_window(x_.connection(), window_);
    xcb_flush(x_.connection());
}

bool X11ManagerTurn::Await(Time end) const {
    // Behind the first answer it has done what it was asked; the server tells it what came of that,
    // such as who has the keyboard, in front of the second question.
    return RoundTrip(end) && RoundTrip(end);
}

bool X11ManagerTurn::RoundTrip(Time end) const {
    xcb_delete_property(x_.connection(), window_, answer_);
    xcb_client_message_event_t question{};
    question.response_type = XCB_CLIENT_MESSAGE;
    question.format = 32;
    question.window = window_;
    question.type = question_;
    xcb_send_event(x_.connection(), 0, x_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&question));
    xcb_flush(x_.connection());
    while (ReadNumbers(x_, window_, answer_, XCB_ATOM_CARDINAL).empty()) {
        if (steady_clock::now() >= end || !x_.usable()) return false;
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return true;
}

}  // namespace corvane::linux_desktop
