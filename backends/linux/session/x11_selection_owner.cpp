// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_selection_owner.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;

// Every server takes requests of this size, and every program parts of it.
constexpr std::size_t kPart = std::size_t{1} << 16U;

// A property of our windows.
constexpr std::string_view kMark = "_CORVANE_KEEPS_A_SELECTION";

constexpr milliseconds kTimeOfServer{1000};  // it is asked for; without an answer: now

void PutBytes(const X11Connection& x, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
              std::string_view bytes) {
    xcb_change_property(x.connection(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
}

void PutNumbers(const X11Connection& x, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                std::span<const std::uint32_t> numbers) {
    xcb_change_property(x.connection(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

}  // namespace

X11SelectionOwner::X11SelectionOwner(std::string_view selection)
    : window_(x_.usable() ? xcb_generate_id(x_.connection()) : xcb_window_t{XCB_WINDOW_NONE}),
      selection_(x_.Atom(selection)),
      targets_(x_.Atom("TARGETS")),
      multiple_(x_.Atom("MULTIPLE")),
      timestamp_(x_.Atom("TIMESTAMP")),
      atom_pair_(x_.Atom("ATOM_PAIR")),
      incr_(x_.Atom("INCR")),
      save_(x_.Atom("SAVE_TARGETS")),
      wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    if (x_.usable()) {
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), -1, -1, 1, 1,
                          0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &mask);
        PutNumbers(x_, window_, x_.Atom(kMark), XCB_ATOM_CARDINAL, std::array{1U});
    }
    thread_ = std::thread([this] { Serve(); });
}

X11SelectionOwner::~X11SelectionOwner() {
    Run([this] { ends_ = true; });
    thread_.join();
    ::close(wake_);
}

bool X11SelectionOwner::Offer(Copied copied) {
    bool taken = false;
    Run([&] {
        next_.reset();
        taken = Take(copied);
    });
    return taken;
}

void X11SelectionOwner::OfferLater(Copied copied, milliseconds delay) {
    Run([&] {
        if (!keeps_) return;
        next_ = {std::move(copied), Clock::now() + delay};
        TakeNextIfItIsTime();
    });
}

bool X11SelectionOwner::Keeps() {
    bool keeps = false;
    Run([&] { keeps = keeps_; });
    return keeps;
}

void X11SelectionOwner::CountFromNow() {
    Run([&] {
        fetched_.clear();
        ++count_;
    });
}

int X11SelectionOwner::FetchedBy(xcb_window_t window) {
    int fetched = 0;
    Run([&] {
        const auto count = fetched_.find(ClientOf(window));
        if (count != fetched_.end()) fetched = count->second;
    });
    return fetched;
}

int X11SelectionOwner::Fetched() {
    int fetched = 0;
    Run([&] {
        for (const auto& [client, times] : fetched_) fetched += times;
    });
    return fetched;
}

bool X11SelectionOwner::HandOver(milliseconds patience) {
    bool handed_over = false;
    Run([&] { handed_over = keeps_ && !forms_.empty() && AskManager(Clock::now() + patience); });
    return handed_over;
}

bool X11SelectionOwner::IsWindowOfOne(const X11Connection& x, xcb_window_t window) {
    const auto mark = linux_desktop::Answer<xcb_get_property_reply>(
        x, xcb_get_property(x.connection(), 0, window, x.Atom(kMark), XCB_ATOM_CARDINAL, 0, 1));
    return mark && mark->value_len > 0;
}

void X11SelectionOwner::Run(std::function<void()> wish) {
    std::unique_lock lock(mutex_);
    wishes_.push_back(std::move(wish));
    const std::uint64_t number = ++wished_;
    ::eventfd_write(wake_, 1);
    done_.wait(lock, [&] { return carried_out_ >= number; });
}

void X11SelectionOwner::Serve() {
    while (!ends_) {
        WaitForSomething();
        CarryOutWishes();
        TakeNextIfItIsTime();
        // Last: events that a round trip has brought along are not waited for again.
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())})
            Handle(*event);
    }
}

void X11SelectionOwner::WaitForSomething() const {
    int timeout = -1;
    if (next_) {
        const auto left = std::chrono::ceil<milliseconds>(next_->when - Clock::now());
        timeout = static_cast<int>(std::max(left, milliseconds(0)).count());
    }
    // A connection that has broken is always ready, and has nothing to say.
    std::array sources{pollfd{wake_, POLLIN, 0},
                       pollfd{xcb_get_file_descriptor(x_.connection()), POLLIN, 0}};
    ::poll(sources.data(), x_.usable() ? 2 : 1, timeout);
}

void X11SelectionOwner::CarryOutWishes() {
    eventfd_t count = 0;
    ::eventfd_read(wake_, &count);
    const std::lock_guard lock(mutex_);
    for (const auto& wish : std::exchange(wishes_, {})) {
        wish();
        ++carried_out_;
    }
    done_.notify_all();
}

bool X11SelectionOwner::Take(const Copied& copied) {
    if (!x_.usable()) return false;
    since_ = ServerTime();
    forms_.clear();
    for (const CopiedForm& form : copied)
        forms_.push_back({x_.Atom(form.name), x_.Atom(form.type), form.bytes});
    fetched_.clear();
    ++count_;
    xcb_set_selection_owner(x_.connection(), window_, selection_, since_);
    const auto owner = linux_desktop::Answer<xcb_get_selection_owner_reply>(
        x_, xcb_get_selection_owner(x_.connection(), selection_));
    keeps_ = owner && owner->owner == window_;
    return keeps_;
}

void X11SelectionOwner::GiveUp() {
    xcb_set_selection_owner(x_.connection(), XCB_WINDOW_NONE, selection_, since_);
    x_.Sync();
    keeps_ = false;
    forms_.clear();
}

void X11SelectionOwner::TakeNextIfItIsTime() {
    if (!next_ || Clock::now() < next_->when) return;
    const Copied copied = std::exchange(next_, std::nullopt)->copied;
    if (copied.empty())
        GiveUp();
    else
        Take(copied);
}

xcb_timestamp_t X11SelectionOwner::ServerTime() {
    // An event tells it; so we make one happen.
    server_time_ = XCB_CURRENT_TIME;
    xcb_change_property(x_.connection(), XCB_PROP_MODE_APPEND, window_, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_flush(x_.connection());
    const auto end = Clock::now() + kTimeOfServer;
    HandleUntil([this] { return server_time_ != XCB_CURRENT_TIME; }, end);
    return server_time_;
}

bool X11SelectionOwner::AskManager(Clock::time_point end) {
    const xcb_atom_t managers = x_.Atom("CLIPBOARD_MANAGER");
    const auto manager = linux_desktop::Answer<xcb_get_selection_owner_reply>(
        x_, xcb_get_selection_owner(x_.connection(), managers));
    if (!manager || manager->owner == XCB_WINDOW_NONE) return false;
    std::vector<std::uint32_t> names;
    for (const Form& offered : forms_) names.push_back(offered.name);
    PutNumbers(x_, window_, save_, XCB_ATOM_ATOM, names);
    manager_ = Manager::Asked;
    xcb_convert_selection(x_.connection(), window_, managers, save_, save_, since_);
    xcb_flush(x_.connection());
    HandleUntil([this] { return manager_ != Manager::Asked; }, end);
    return std::exchange(manager_, Manager::NotAsked) == Manager::Has;
}

bool X11SelectionOwner::HandleUntil(const std::function<bool()>& is_so, Clock::time_point end) {
    while (x_.usable()) {
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())})
            Handle(*event);
        if (is_so()) return true;
        const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
        if (left <= milliseconds(0)) break;
        pollfd connection{xcb_get_file_descriptor(x_.connection()), POLLIN, 0};
        ::poll(&connection, 1, static_cast<int>(left.count()));
    }
    return false;
}

void X11SelectionOwner::Handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7FU) {
        case XCB_SELECTION_REQUEST:
            Answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
            break;
        case XCB_SELECTION_NOTIFY: {
            const auto& answer = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
            if (manager_ != Manager::Asked || answer.target != save_) break;
            manager_ = answer.property == XCB_ATOM_NONE ? Manager::HasNot : Manager::Has;
            break;
        }
        case XCB_SELECTION_CLEAR: {
            // One from before our last taking tells of our own act.
            const auto& clear = reinterpret_cast<const xcb_selection_clear_event_t&>(event);
            if (since_ != XCB_CURRENT_TIME && clear.time < since_) break;
            keeps_ = false;
            forms_.clear();
            next_.reset();  // what another program has copied stays
            break;
        }
        case XCB_PROPERTY_NOTIFY: {
            const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            if (notify.window == window_) server_time_ = notify.time;
            if (notify.state != XCB_PROPERTY_DELETE) break;
            const auto transfer = std::ranges::find_if(transfers_, [&](const Transfer& t) {
                return t.requestor == notify.window && t.property == notify.atom;
            });
            if (transfer != transfers_.end()) PutPart(*transfer);
            break;
        }
        case XCB_DESTROY_NOTIFY: {
            const auto& gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
            std::erase_if(transfers_,
                          [&](const Transfer& t) { return t.requestor == gone.window; });
            break;
        }
        default:
            break;
    }
}

void X11SelectionOwner::Answer(const xcb_selection_request_event_t& request) {
    // Programs of old name no property and mean the one that is called like the form.
    const xcb_atom_t property =
        request.property == XCB_ATOM_NONE ? request.target : request.property;
    const bool of_now = keeps_ && request.selection == selection_ &&
                        (request.time == XCB_CURRENT_TIME || request.time >= since_);
    const bool put =
        of_now && (request.target == multiple_ ? PutEach(request.requestor, property)
                                               : Put(request.requestor, property, request.target));
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = request.time;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = put ? property : xcb_atom_t{XCB_ATOM_NONE};
    xcb_send_event(x_.connection(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&answer));
    xcb_flush(x_.connection());
}

bool X11SelectionOwner::Put(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t form) {
    if (form == targets_) {
        std::vector<std::uint32_t> names{targets_, multiple_, timestamp_};
        for (const Form& offered : forms_) names.push_back(offered.name);
        PutNumbers(x_, requestor, property, XCB_ATOM_ATOM, names);
        return true;
    }
    if (form == timestamp_) {
        PutNumbers(x_, requestor, property, XCB_ATOM_INTEGER, std::array{since_});
        return true;
    }
    const auto offered = std::ranges::find(forms_, form, &Form::name);
    return offered != forms_.end() && PutForm(requestor, property, *offered);
}

bool X11SelectionOwner::PutEach(xcb_window_t requestor, xcb_atom_t property) {
    constexpr std::uint32_t kMostPairs = 256;
    const auto list = linux_desktop::Answer<xcb_get_property_reply>(
        x_,
        xcb_get_property(x_.connection(), 0, requestor, property, atom_pair_, 0, 2 * kMostPairs));
    if (!list || list->format != 32) return false;
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(list.get()));
    std::vector<std::uint32_t> pairs(first, first + list->value_len / 2 * 2);
    for (std::size_t i = 0; i < pairs.size(); i += 2)
        if (pairs[i] == multiple_ || !Put(requestor, pairs[i + 1], pairs[i]))
            pairs[i + 1] = XCB_ATOM_NONE;
    PutNumbers(x_, requestor, property, atom_pair_, pairs);
    return true;
}

bool X11SelectionOwner::PutForm(xcb_window_t requestor, xcb_atom_t property, const Form& form) {
    if (form.bytes.size() <= kPart) {
        PutBytes(x_, requestor, property, form.type, form.bytes);
        Count(requestor, count_);
        return true;
    }
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x_.connection(), requestor, XCB_CW_EVENT_MASK, &mask);
    std::erase_if(transfers_, [&](const Transfer& t) {
        return t.requestor == requestor && t.property == property;
    });
    transfers_.push_back({requestor, property, form.type, form.bytes, 0, count_});
    PutNumbers(x_, requestor, property, incr_,
               std::array{static_cast<std::uint32_t>(form.bytes.size())});
    return true;
}

void X11SelectionOwner::PutPart(Transfer& transfer) {
    const auto part = std::string_view(transfer.bytes).substr(transfer.sent, kPart);
    transfer.sent += part.size();
    PutBytes(x_, transfer.requestor, transfer.property, transfer.type, part);
    xcb_flush(x_.connection());
    if (!part.empty()) return;
    // The empty part is the end.
    Count(transfer.requestor, transfer.count);
    const xcb_window_t requestor = transfer.requestor;
    const xcb_atom_t property = transfer.property;
    std::erase_if(transfers_, [&](const Transfer& t) {
        return t.requestor == requestor && t.property == property;
    });
}

void X11SelectionOwner::Count(xcb_window_t requestor, int count) {
    if (count == count_) ++fetched_[ClientOf(requestor)];
}

std::uint32_t X11SelectionOwner::ClientOf(xcb_window_t window) const {
    if (!x_.usable()) return 0;
    // The number of a window tells which connection has made it.
    return window & ~xcb_get_setup(x_.connection())->resource_id_mask;
}

}  // namespace corvane::linux_desktop
