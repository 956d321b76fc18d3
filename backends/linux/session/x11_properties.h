// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "linux/session/x11_connection.h"

/// What programs and window managers have written onto windows for others to read.
namespace corvane::linux_desktop {

/// Numbers of 32 bits; none if the window, the property or the type is not there.
[[nodiscard]] std::vector<std::uint32_t> ReadNumbers(const X11Connection& x, xcb_window_t window,
                                                     xcb_atom_t property, xcb_atom_t type);

struct PropertyBytes {
    xcb_atom_t type = XCB_ATOM_NONE;  ///< none: the window or the property is not there
    std::string bytes;
};
/// Text as it stands, with the type that tells its encoding.
[[nodiscard]] PropertyBytes ReadBytes(const X11Connection& x, xcb_window_t window,
                                      xcb_atom_t property);

/// What the type STRING holds, as UTF-8.
[[nodiscard]] std::string Utf8OfLatin1(std::string_view latin1);

}  // namespace corvane::linux_desktop
