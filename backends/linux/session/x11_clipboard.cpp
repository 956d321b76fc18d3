// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_clipboard.h"

#include <poll.h>
#include <xcb/xfixes.h>

#include <utility>

#include "linux/session/x11_properties.h"

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

std::uint8_t TypeOf(const xcb_generic_event_t& event) {
    constexpr std::uint8_t kSentByAProgram = 0x80;
    return event.response_type & static_cast<std::uint8_t>(~kSentByAProgram);
}

template <class Event>
const Event& As(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

}  // namespace

/// A window that nobody sees, to which an answer goes. Each question has its own, so that the late
/// answer to an earlier one is lost with its window.
class X11Clipboard::Requestor {
public:
    Requestor(const X11Connection& x, xcb_atom_t property)
        : x_(x), property_(property), window_(xcb_generate_id(x.connection())) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(x.connection(), XCB_COPY_FROM_PARENT, window_, x.root(), -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &mask);
    }
    ~Requestor() {
        xcb_destroy_window(x_.connection(), window_);
        xcb_flush(x_.connection());
    }
    Requestor(const Requestor&) = delete;
    Requestor& operator=(const Requestor&) = delete;

    [[nodiscard]] xcb_window_t window() const { return window_; }

    struct Value {
        xcb_atom_t type = XCB_ATOM_NONE;
        std::string bytes;
    };
    /// Takes the answer away, which asks for the next part if there is one.
    [[nodiscard]] Value Take() const {
        constexpr std::uint32_t kAllOfIt = 1U << 28U;
        const auto value = Answer<xcb_get_property_reply>(
            x_, xcb_get_property(x_.connection(), 1, window_, property_, XCB_GET_PROPERTY_TYPE_ANY,
                                 0, kAllOfIt));
        if (!value) return {};
        const auto* bytes = static_cast<const char*>(xcb_get_property_value(value.get()));
        const auto size = static_cast<std::size_t>(xcb_get_property_value_length(value.get()));
        return {value->type, std::string(bytes, size)};
    }

private:
    const X11Connection& x_;
    xcb_atom_t property_;
    xcb_window_t window_;
};

X11Clipboard::X11Clipboard(xcb_connection_t* program)
    : program_(program),
      clipboard_(x_.Atom("CLIPBOARD")),
      target_(x_.Atom("CORVANE_CLIPBOARD")),
      incr_(x_.Atom("INCR")),
      utf8_string_(x_.Atom("UTF8_STRING")),
      plain_utf8_(x_.Atom("text/plain;charset=utf-8")) {
    if (!x_.usable()) return;
    const auto* extension = xcb_get_extension_data(x_.connection(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0) return;
    // The extension answers nothing before it was asked for its version.
    if (!Answer<xcb_xfixes_query_version_reply>(x_,
                                                xcb_xfixes_query_version(x_.connection(), 1, 0)))
        return;
    xcb_xfixes_select_selection_input(x_.connection(), x_.root(), clipboard_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    x_.Sync();
    notify_ = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
}

Clipboard::Keeper X11Clipboard::FindKeeper() {
    const auto owner = Answer<xcb_get_selection_owner_reply>(
        x_, xcb_get_selection_owner(x_.connection(), clipboard_));
    if (!owner || owner->owner == XCB_WINDOW_NONE) return Keeper::Nobody;
    if (program_ == nullptr) return Keeper::OtherProgram;
    // The number of a window tells which connection has made it.
    const xcb_setup_t* setup = xcb_get_setup(program_);
    const bool ours = (owner->owner & ~setup->resource_id_mask) == setup->resource_id_base;
    return ours ? Keeper::OurProgram : Keeper::OtherProgram;
}

std::optional<std::string> X11Clipboard::ReadText(milliseconds patience) {
    if (!x_.usable()) return {};
    for (const xcb_atom_t form : {utf8_string_, plain_utf8_, xcb_atom_t{XCB_ATOM_STRING}}) {
        auto [answered, text] = Request(form, patience);
        // Who is silent once is not asked again: the person waits.
        if (!answered) return {};
        if (text) return form == XCB_ATOM_STRING ? Utf8OfLatin1(*text) : std::move(*text);
    }
    return {};
}

std::uint32_t X11Clipboard::Copies() {
    // After a round trip everything that has happened so far has arrived.
    x_.Sync();
    while (TakeEvent()) {
    }
    return copies_;
}

X11Clipboard::Reply X11Clipboard::Request(xcb_atom_t form, milliseconds patience) {
    const Requestor requestor(x_, target_);
    xcb_convert_selection(x_.connection(), requestor.window(), clipboard_, form, target_,
                          XCB_CURRENT_TIME);
    xcb_flush(x_.connection());
    const auto answer = WaitFor(
        [&](const xcb_generic_event_t& event) {
            return TypeOf(event) == XCB_SELECTION_NOTIFY &&
                   As<xcb_selection_notify_event_t>(event).requestor == requestor.window();
        },
        patience);
    if (!answer) return {};
    if (As<xcb_selection_notify_event_t>(*answer).property == XCB_ATOM_NONE)
        return {.answered = true, .text = {}};
    auto value = requestor.Take();
    if (value.type == incr_) return TakeParts(requestor, patience);
    if (value.type == XCB_ATOM_NONE) return {.answered = true, .text = {}};
    return {.answered = true, .text = std::move(value.bytes)};
}

X11Clipboard::Reply X11Clipboard::TakeParts(const Requestor& requestor, milliseconds patience) {
    std::string text;
    for (;;) {
        const auto part_is_there = WaitFor(
            [&](const xcb_generic_event_t& event) {
                if (TypeOf(event) != XCB_PROPERTY_NOTIFY) return false;
                const auto& notify = As<xcb_property_notify_event_t>(event);
                return notify.window == requestor.window() && notify.atom == target_ &&
                       notify.state == XCB_PROPERTY_NEW_VALUE;
            },
            patience);
        if (!part_is_there) return {};
        const auto part = requestor.Take();
        if (part.bytes.empty()) return {.answered = true, .text = std::move(text)};
        text += part.bytes;
    }
}

XcbReply<xcb_generic_event_t> X11Clipboard::WaitFor(const Wanted& wanted, milliseconds patience) {
    const auto end = steady_clock::now() + patience;
    while (x_.usable()) {
        while (auto event = TakeEvent())
            if (wanted(*event)) return event;
        const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
        if (left <= milliseconds(0)) break;
        pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
        ::poll(&connection, 1, static_cast<int>(left.count()));
    }
    return {};
}

XcbReply<xcb_generic_event_t> X11Clipboard::TakeEvent() {
    XcbReply<xcb_generic_event_t> event(xcb_poll_for_event(x_.connection()));
    if (event && notify_ && TypeOf(*event) == *notify_ &&
        As<xcb_xfixes_selection_notify_event_t>(*event).owner != XCB_WINDOW_NONE)
        ++copies_;
    return event;
}

}  // namespace corvane::linux_desktop
