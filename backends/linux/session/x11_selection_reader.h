// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string_view>

#include "linux/session/clipboard.h"
#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// Reads a selection of an X11 session, such as CLIPBOARD or PRIMARY, from the program that keeps
/// it. On a connection of its own, so that no message of ours runs meanwhile.
class X11SelectionReader {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// `while_waiting`, if there is one, is called over and over while an answer does not come: our
    /// own windows answer only then.
    explicit X11SelectionReader(std::string_view selection,
                                std::function<void()> while_waiting = {});

    /// A window of the program that keeps it; XCB_WINDOW_NONE if none does.
    [[nodiscard]] xcb_window_t Keeper() const;

    struct Reply {
        bool answered = false;           ///< false: the keeper was not ready by the end
        bool too_large = false;          ///< it has more of it than was wanted
        std::optional<CopiedForm> form;  ///< nothing: it does not have it in that form
    };
    /// One form; nothing of it if it has more than `most` bytes.
    [[nodiscard]] Reply Read(std::string_view form, Time end, std::size_t most) const;

    struct Whole {
        Copied copied;
        /// Whether that is all of it that people can paste. False if a form is missing: it is more
        /// than fits, has not come by the end, or all that is offered are forms unknown to us.
        bool complete = false;
    };
    /// The forms that people copy and paste, with `most` bytes in all. Complete, and nothing, if
    /// nobody keeps it.
    [[nodiscard]] Whole ReadAll(Time end, std::size_t most) const;

private:
    using Wanted = std::function<bool(const xcb_generic_event_t&)>;
    class Requestor;

    struct Value {
        xcb_atom_t type = XCB_ATOM_NONE;
        int format = 0;
        std::string bytes;
    };
    struct Handed {
        bool answered = false;
        bool too_large = false;
        Value value;  ///< without a type: not in that form, or too large
    };
    [[nodiscard]] Handed Request(xcb_atom_t form, Time end, std::size_t most) const;
    /// What arrives in parts, of which each is fetched before the next is sent.
    [[nodiscard]] Handed TakeParts(const Requestor& requestor, Time end, std::size_t most) const;
    /// Waits for an event; nullptr if it has not come by the end.
    [[nodiscard]] XcbReply<xcb_generic_event_t> WaitFor(const Wanted& wanted, Time end) const;

    X11Connection x_;
    std::function<void()> while_waiting_;
    xcb_atom_t selection_, target_, incr_;
};

}  // namespace corvane::linux_desktop
