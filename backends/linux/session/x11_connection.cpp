// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_connection.h"

#include <cstdint>

namespace corvane::linux_desktop {

X11Connection::X11Connection() : connection_(xcb_connect(nullptr, &screen_)) {
    if (!usable()) return;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection()));
    for (int i = 0; i < screen_ && screen.rem > 1; ++i) xcb_screen_next(&screen);
    root_ = screen.data->root;
}

xcb_atom_t X11Connection::Atom(std::string_view name) const {
    const auto atom = Answer<xcb_intern_atom_reply>(
        *this,
        xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
    return atom ? atom->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::string X11Connection::NameOf(xcb_atom_t atom) const {
    const auto name = Answer<xcb_get_atom_name_reply>(*this, xcb_get_atom_name(connection(), atom));
    if (!name) return {};
    return {xcb_get_atom_name_name(name.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(name.get()))};
}

void X11Connection::Sync() const {
    (void)Answer<xcb_get_input_focus_reply>(*this, xcb_get_input_focus(connection()));
}

void X11Connection::DropEvents() const {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection())}) {
    }
}

}  // namespace corvane::linux_desktop
