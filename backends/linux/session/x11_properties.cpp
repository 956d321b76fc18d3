// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_properties.h"

namespace corvane::linux_desktop {
namespace {

// In units of 32 bits. A list of windows or a title beyond that is cut off.
constexpr std::uint32_t kMost = 16384;

}  // namespace

std::vector<std::uint32_t> ReadNumbers(const X11Connection& x, xcb_window_t window,
                                       xcb_atom_t property, xcb_atom_t type) {
    const auto value = Answer<xcb_get_property_reply>(
        x, xcb_get_property(x.connection(), 0, window, property, type, 0, kMost));
    if (!value || value->format != 32) return {};
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(value.get()));
    return {items, items + value->value_len};
}

PropertyBytes ReadBytes(const X11Connection& x, xcb_window_t window, xcb_atom_t property) {
    const auto value = Answer<xcb_get_property_reply>(
        x,
        xcb_get_property(x.connection(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kMost));
    if (!value || value->format != 8) return {};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(value.get()));
    return {value->type, std::string(bytes, value->value_len)};
}

std::string Utf8OfLatin1(std::string_view latin1) {
    std::string utf8;
    for (const char c : latin1) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0U | (code >> 6U));
            utf8 += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return utf8;
}

}  // namespace corvane::linux_desktop
