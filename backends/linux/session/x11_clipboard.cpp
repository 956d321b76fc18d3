// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_clipboard.h"

#include <xcb/xfixes.h>

#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>

#include "linux/session/x11_properties.h"
#include "linux/session/x11_selection_owner.h"

namespace corvane::linux_desktop {

X11Clipboard::X11Clipboard(xcb_connection_t* program) : program_(program) {
    if (!watch_.usable()) return;
    const auto* extension = xcb_get_extension_data(watch_.connection(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0) return;
    // The extension answers nothing before it was asked for its version.
    if (!Answer<xcb_xfixes_query_version_reply>(
            watch_, xcb_xfixes_query_version(watch_.connection(), 1, 0)))
        return;
    xcb_xfixes_select_selection_input(watch_.connection(), watch_.root(), watch_.Atom("CLIPBOARD"),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    watch_.Sync();
    notify_ = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
}

Clipboard::Keeper X11Clipboard::FindKeeper() {
    const xcb_window_t keeper = reader_.Keeper();
    if (keeper == XCB_WINDOW_NONE) return Keeper::Nobody;
    if (program_ == nullptr) return Keeper::OtherProgram;
    // The number of a window tells which connection has made it.
    const xcb_setup_t* setup = xcb_get_setup(program_);
    const bool ours = (keeper & ~setup->resource_id_mask) == setup->resource_id_base;
    return ours ? Keeper::OurProgram : Keeper::OtherProgram;
}

std::optional<std::string> X11Clipboard::ReadText(std::chrono::milliseconds patience) {
    constexpr std::size_t kAllOfIt = std::numeric_limits<std::size_t>::max();
    const auto end = std::chrono::steady_clock::now() + patience;
    for (const std::string_view form : {"UTF8_STRING", "text/plain;charset=utf-8", "STRING"}) {
        auto [answered, too_large, text] = reader_.Read(form, end, kAllOfIt);
        // Who is silent once is not asked again: the person waits.
        if (!answered) return {};
        if (text) return form == "STRING" ? Utf8OfLatin1(text->bytes) : std::move(text->bytes);
    }
    return {};
}

std::uint32_t X11Clipboard::Copies() {
    // After a round trip everything that has happened so far has arrived.
    watch_.Sync();
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(watch_.connection())}) {
        // The top bit tells events that programs have sent.
        if (!notify_ || (event->response_type & 0x7FU) != *notify_) continue;
        const xcb_window_t owner =
            reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(*event).owner;
        // What is lent for a paste, and given back behind it, nobody has copied.
        if (owner != XCB_WINDOW_NONE && !X11SelectionOwner::IsWindowOfOne(watch_, owner)) ++copies_;
    }
    return copies_;
}

}  // namespace corvane::linux_desktop
