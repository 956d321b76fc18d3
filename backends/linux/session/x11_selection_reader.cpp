// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_selection_reader.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// What people copy and paste. Not all that is offered: some forms are made only when they are
/// asked for, at length, and some are no forms but acts, such as DELETE.
constexpr auto kForms = std::to_array<std::string_view>({
    "UTF8_STRING",
    "text/plain;charset=utf-8",
    "text/plain",
    "TEXT",
    "STRING",
    "text/html",
    "text/uri-list",
    "text/rtf",
    "text/richtext",
    "application/rtf",
    "image/png",
    "image/svg+xml",
    "text/x-moz-url",
    "chromium/x-web-custom-data",
    "x-special/gnome-copied-files",
    "x-special/mate-copied-files",
    "application/x-kde-cutselection",
});

/// What even a program that keeps nothing is asked for.
constexpr auto kNoForms =
    std::to_array<std::string_view>({"TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS"});

constexpr milliseconds kBetweenCalls{2};

std::uint8_t TypeOf(const xcb_generic_event_t& event) {
    constexpr std::uint8_t kSentByAProgram = 0x80;
    return event.response_type & static_cast<std::uint8_t>(~kSentByAProgram);
}

template <class Event>
const Event& As(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

std::vector<xcb_atom_t> AtomsIn(const std::string& bytes) {
    std::vector<xcb_atom_t> atoms(bytes.size() / sizeof(xcb_atom_t));
    if (!atoms.empty()) std::memcpy(atoms.data(), bytes.data(), atoms.size() * sizeof(xcb_atom_t));
    return atoms;
}

}  // namespace

/// A window that nobody sees, to which an answer goes. Each question has its own, so that the late
/// answer to an earlier one is lost with its window.
class X11SelectionReader::Requestor {
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

    /// Takes the answer away, which asks for the next part if there is one.
    [[nodiscard]] Value Take() const {
        constexpr std::uint32_t kAllOfIt = 1U << 28U;
        const auto value = Answer<xcb_get_property_reply>(
            x_, xcb_get_property(x_.connection(), 1, window_, property_, XCB_GET_PROPERTY_TYPE_ANY,
                                 0, kAllOfIt));
        if (!value) return {};
        const auto* bytes = static_cast<const char*>(xcb_get_property_value(value.get()));
        const auto size = static_cast<std::size_t>(xcb_get_property_value_length(value.get()));
        return {value->type, value->format, std::string(bytes, size)};
    }

private:
    const X11Connection& x_;
    xcb_atom_t property_;
    xcb_window_t window_;
};

X11SelectionReader::X11SelectionReader(std::string_view selection,
                                       std::function<void()> while_waiting)
    : while_waiting_(std::move(while_waiting)),
      selection_(x_.Atom(selection)),
      target_(x_.Atom("CORVANE_SELECTION")),
      incr_(x_.Atom("INCR")) {}

xcb_window_t X11SelectionReader::Keeper() const {
    const auto owner = Answer<xcb_get_selection_owner_reply>(
        x_, xcb_get_selection_owner(x_.connection(), selection_));
    return owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

X11SelectionReader::Reply X11SelectionReader::Read(std::string_view form, Time end,
                                                   std::size_t most) const {
    if (!x_.usable()) return {};
    auto [answered, too_large, value] = Request(x_.Atom(form), end, most);
    Reply reply{.answered = answered, .too_large = too_large, .form = {}};
    if (value.type != XCB_ATOM_NONE && value.format == 8)
        reply.form = {std::string(form), x_.NameOf(value.type), std::move(value.bytes)};
    return reply;
}

X11SelectionReader::Whole X11SelectionReader::ReadAll(Time end, std::size_t most) const {
    constexpr std::size_t kMostForms = 1U << 16U;  // bytes
    if (!x_.usable()) return {};
    if (Keeper() == XCB_WINDOW_NONE) return {.copied = {}, .complete = true};
    const Handed list = Request(x_.Atom("TARGETS"), end, kMostForms);
    if (list.value.type == XCB_ATOM_NONE) return {};
    const auto offered = AtomsIn(list.value.bytes);
    Whole whole{.copied = {}, .complete = true};
    for (const std::string_view name : kForms) {
        if (std::ranges::find(offered, x_.Atom(name)) == offered.end()) continue;
        auto reply = Read(name, end, most);
        if (!reply.answered || reply.too_large) whole.complete = false;
        if (!reply.answered) break;
        if (!reply.form) continue;
        most -= reply.form->bytes.size();
        whole.copied.push_back(std::move(*reply.form));
    }
    const auto says_nothing = [this](xcb_atom_t form) {
        return std::ranges::any_of(kNoForms, [&](auto name) { return x_.Atom(name) == form; });
    };
    if (whole.copied.empty() && !std::ranges::all_of(offered, says_nothing)) whole.complete = false;
    return whole;
}

X11SelectionReader::Handed X11SelectionReader::Request(xcb_atom_t form, Time end,
                                                       std::size_t most) const {
    const Requestor requestor(x_, target_);
    xcb_convert_selection(x_.connection(), requestor.window(), selection_, form, target_,
                          XCB_CURRENT_TIME);
    xcb_flush(x_.connection());
    const auto answer = WaitFor(
        [&](const xcb_generic_event_t& event) {
            return TypeOf(event) == XCB_SELECTION_NOTIFY &&
                   As<xcb_selection_notify_event_t>(event).requestor == requestor.window();
        },
        end);
    if (!answer) return {};
    if (As<xcb_selection_notify_event_t>(*answer).property == XCB_ATOM_NONE)
        return {.answered = true, .too_large = false, .value = {}};
    auto value = requestor.Take();
    if (value.type == incr_) return TakeParts(requestor, end, most);
    if (value.bytes.size() > most) return {.answered = true, .too_large = true, .value = {}};
    return {.answered = true, .too_large = false, .value = std::move(value)};
}

X11SelectionReader::Handed X11SelectionReader::TakeParts(const Requestor& requestor, Time end,
                                                         std::size_t most) const {
    Value whole;
    for (;;) {
        const auto part_is_there = WaitFor(
            [&](const xcb_generic_event_t& event) {
                if (TypeOf(event) != XCB_PROPERTY_NOTIFY) return false;
                const auto& notify = As<xcb_property_notify_event_t>(event);
                return notify.window == requestor.window() && notify.atom == target_ &&
                       notify.state == XCB_PROPERTY_NEW_VALUE;
            },
            end);
        if (!part_is_there) return {};
        Value part = requestor.Take();
        if (part.bytes.empty())
            return {.answered = true,
                    .too_large = false,
                    .value = std::move(whole.type == XCB_ATOM_NONE ? part : whole)};
        if (whole.bytes.size() + part.bytes.size() > most)
            return {.answered = true, .too_large = true, .value = {}};
        whole.type = part.type;
        whole.format = part.format;
        whole.bytes += part.bytes;
    }
}

XcbReply<xcb_generic_event_t> X11SelectionReader::WaitFor(const Wanted& wanted, Time end) const {
    while (x_.usable()) {
        while (XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())})
            if (wanted(*event)) return event;
        auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
        if (left <= milliseconds(0)) break;
        if (while_waiting_) left = std::min(left, kBetweenCalls);
        pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
        const int ready = ::poll(&connection, 1, static_cast<int>(left.count()));
        if (ready == 0 && while_waiting_) while_waiting_();
    }
    return {};
}

}  // namespace corvane::linux_desktop
