// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <poll.h>
#include <xcb/xcb.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// Another program that copies, and hands over what it has copied when it is asked.
class CopyingProgram {
public:
    CopyingProgram() {
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        x_.Sync();
        thread_ = std::thread([this] { Serve(); });
    }
    ~CopyingProgram() {
        ends_ = true;
        thread_.join();
    }
    CopyingProgram(const CopyingProgram&) = delete;
    CopyingProgram& operator=(const CopyingProgram&) = delete;

    /// Copies: what it has, by the form in which it offers it.
    void Copy(const std::map<std::string, std::string>& forms) {
        forms_.clear();
        for (const auto& [form, bytes] : forms) forms_[x_.Atom(form)] = bytes;
        xcb_set_selection_owner(x_.connection(), window_, clipboard_, XCB_CURRENT_TIME);
        x_.Sync();
    }

    std::atomic<int> asked = 0;                 ///< how often it was asked for what it has
    std::atomic<bool> hangs = false;            ///< it answers nothing
    std::atomic<std::size_t> part_size = 0;     ///< not 0: it hands over in parts
    std::atomic<std::size_t> parts = 1U << 30;  ///< behind so many parts it hangs

private:
    void Serve() {
        while (!ends_) {
            pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
            ::poll(&connection, 1, 5);
            while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())})
                Take(*event);
        }
    }

    void Take(const xcb_generic_event_t& event) {
        const int type = event.response_type & 0x7F;
        if (type == XCB_SELECTION_REQUEST) ++asked;
        if (type == XCB_SELECTION_REQUEST && !hangs)
            Answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
        if (type == XCB_PROPERTY_NOTIFY) {
            const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            if (notify.state == XCB_PROPERTY_DELETE && notify.window == asking_.requestor)
                SendPart();
        }
    }

    void Answer(const xcb_selection_request_event_t& request) {
        xcb_selection_notify_event_t answer{};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.requestor = request.requestor;
        answer.selection = request.selection;
        answer.target = request.target;
        const auto form = forms_.find(request.target);
        if (request.target == targets_) {
            answer.property = request.property;
            std::vector<xcb_atom_t> names{targets_};
            for (const auto& [name, bytes] : forms_) names.push_back(name);
            xcb_change_property(x_.connection(), XCB_PROP_MODE_REPLACE, request.requestor,
                                request.property, XCB_ATOM_ATOM, 32,
                                static_cast<std::uint32_t>(names.size()), names.data());
        } else if (form != forms_.end()) {
            answer.property = request.property;
            if (part_size > 0) {
                asking_ = request;
                rest_ = form->second;
                parts_sent_ = 0;
                const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
                xcb_change_window_attributes(x_.connection(), request.requestor, XCB_CW_EVENT_MASK,
                                             &mask);
                const auto size = static_cast<std::uint32_t>(rest_.size());
                xcb_change_property(x_.connection(), XCB_PROP_MODE_REPLACE, request.requestor,
                                    request.property, incr_, 32, 1, &size);
            } else {
                Put(request, form->second);
            }
        }
        xcb_send_event(x_.connection(), 0, request.requestor, 0,
                       reinterpret_cast<const char*>(&answer));
        xcb_flush(x_.connection());
    }

    void SendPart() {
        if (parts_sent_++ >= parts) return;
        const std::string part = rest_.substr(0, part_size);
        rest_.erase(0, part.size());
        Put(asking_, part);
        if (part.empty()) asking_ = {};
        xcb_flush(x_.connection());
    }

    void Put(const xcb_selection_request_event_t& request, const std::string& bytes) const {
        xcb_change_property(x_.connection(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, request.target, 8,
                            static_cast<std::uint32_t>(bytes.size()), bytes.data());
    }

    X11Connection x_;
    xcb_window_t window_ = xcb_generate_id(x_.connection());
    xcb_atom_t clipboard_ = x_.Atom("CLIPBOARD");
    xcb_atom_t targets_ = x_.Atom("TARGETS");
    xcb_atom_t incr_ = x_.Atom("INCR");
    std::map<xcb_atom_t, std::string> forms_;
    xcb_selection_request_event_t asking_{};
    std::string rest_;
    std::size_t parts_sent_ = 0;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

}  // namespace corvane::linux_desktop
