// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::linux_desktop {

/// What xcb hands over for us to free.
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using XcbReply = std::unique_ptr<Reply, FreeReply>;

/// A connection of our own to the X server: what fails on it disturbs nobody else, since errors
/// arrive on it as events and are dropped.
class X11Connection {
public:
    /// Connects to the display that the environment names; usable() tells whether that worked.
    X11Connection();

    [[nodiscard]] bool usable() const { return xcb_connection_has_error(connection()) == 0; }
    [[nodiscard]] xcb_connection_t* connection() const { return connection_.get(); }
    [[nodiscard]] xcb_window_t root() const { return root_; }

    /// Number of a name; XCB_ATOM_NONE if the server does not answer.
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;
    /// Name of a number; empty if the server knows none.
    [[nodiscard]] std::string NameOf(xcb_atom_t atom) const;
    /// Returns when the server has carried out all that was asked so far.
    void Sync() const;
    /// Drops all events that have arrived.
    void DropEvents() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    int screen_ = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
};

/// Waits for the answer to a request; nullptr if it failed. `Function` is xcb's ..._reply.
template <auto Function, class Cookie>
[[nodiscard]] auto Answer(const X11Connection& x, Cookie cookie) {
    using Reply = std::remove_pointer_t<decltype(Function(nullptr, cookie, nullptr))>;
    xcb_generic_error_t* error = nullptr;
    XcbReply<Reply> reply(Function(x.connection(), cookie, &error));
    const XcbReply<xcb_generic_error_t> dropped(error);
    return reply;
}

}  // namespace corvane::linux_desktop
