// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <poll.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <thread>

#include "linux/session/x11_connection.h"
#include "linux/session/x11_selection_owner.h"
#include "linux/session/x11_selection_reader.h"

namespace corvane::linux_desktop {

/// The session's clipboard manager: it keeps what a program that ends has copied.
class ClipboardManager {
public:
    ClipboardManager() {
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(x_.connection(), window_, x_.Atom("CLIPBOARD_MANAGER"),
                                XCB_CURRENT_TIME);
        x_.Sync();
        thread_ = std::thread([this] { Serve(); });
    }
    ~ClipboardManager() {
        ends_ = true;
        thread_.join();
    }
    ClipboardManager(const ClipboardManager&) = delete;
    ClipboardManager& operator=(const ClipboardManager&) = delete;

    std::atomic<bool> hangs = false;  ///< it answers nothing

private:
    void Serve() {
        while (!ends_) {
            pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
            ::poll(&connection, 1, 5);
            while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())})
                if ((event->response_type & 0x7F) == XCB_SELECTION_REQUEST && !hangs)
                    Save(reinterpret_cast<const xcb_selection_request_event_t&>(*event));
        }
    }

    void Save(const xcb_selection_request_event_t& request) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        const X11SelectionReader reader("CLIPBOARD");
        const bool kept = request.target == x_.Atom("SAVE_TARGETS") &&
                          keeps_.Offer(reader.ReadAll(end, std::size_t{1} << 24U).copied);
        xcb_selection_notify_event_t answer{};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.requestor = request.requestor;
        answer.selection = request.selection;
        answer.target = request.target;
        answer.property = kept ? request.property : xcb_atom_t{XCB_ATOM_NONE};
        xcb_send_event(x_.connection(), 0, request.requestor, 0,
                       reinterpret_cast<const char*>(&answer));
        xcb_flush(x_.connection());
    }

    X11Connection x_;
    xcb_window_t window_ = xcb_generate_id(x_.connection());
    X11SelectionOwner keeps_{"CLIPBOARD"};
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

}  // namespace corvane::linux_desktop
