// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <thread>
#include <vector>

#include "linux/session/clipboard.h"
#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// Keeps a selection of an X11 session, such as CLIPBOARD or PRIMARY, and hands it over to whoever
/// asks. On a thread and a connection of its own: programs ask at any time, also our own windows,
/// which wait for the answer meanwhile.
class X11SelectionOwner {
public:
    explicit X11SelectionOwner(std::string_view selection);
    ~X11SelectionOwner();
    X11SelectionOwner(const X11SelectionOwner&) = delete;
    X11SelectionOwner& operator=(const X11SelectionOwner&) = delete;

    /// Takes the selection and offers this from now on. False if the server does not let us.
    bool Offer(Copied copied);
    /// Offers this in place of what is offered now, or gives the selection up if it is empty, once
    /// `delay` has passed; unless another program has taken it by then, or Offer is called before.
    void OfferLater(Copied copied, std::chrono::milliseconds delay);

    /// Whether we still keep it.
    [[nodiscard]] bool Keeps();
    /// Fetches count from now on, in place of from the last offer on.
    void CountFromNow();
    /// How often the program to which that window belongs has fetched what was offered last.
    [[nodiscard]] int FetchedBy(xcb_window_t window);
    /// How often any program has.
    [[nodiscard]] int Fetched();

    /// Has the session's clipboard manager, if there is one, keep CLIPBOARD once we are gone.
    /// Returns when it has fetched what we keep, or after `patience`; false if nobody took it.
    bool HandOver(std::chrono::milliseconds patience);

    /// Whether a window is one that keeps a selection in this way, for a while and for somebody
    /// else: in no way a person's copy.
    [[nodiscard]] static bool IsWindowOfOne(const X11Connection& x, xcb_window_t window);

private:
    using Clock = std::chrono::steady_clock;

    struct Form {
        xcb_atom_t name, type;
        std::string bytes;
    };
    /// What is handed over in parts, each of which is put there when the last was taken away.
    struct Transfer {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        std::string bytes;
        std::size_t sent;
        int count;  // to which it belongs
    };
    struct Next {
        Copied copied;
        Clock::time_point when;
    };

    /// Does it on the thread; returns when it is done.
    void Run(std::function<void()> wish);
    void Serve();
    void WaitForSomething() const;
    void CarryOutWishes();

    bool Take(const Copied& copied);
    void GiveUp();
    void TakeNextIfItIsTime();
    [[nodiscard]] xcb_timestamp_t ServerTime();
    bool AskManager(Clock::time_point end);
    /// Handles events until that is so; false if it is not by the end.
    bool HandleUntil(const std::function<bool()>& is_so, Clock::time_point end);

    void Handle(const xcb_generic_event_t& event);
    void Answer(const xcb_selection_request_event_t& request);
    bool Put(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t form);
    bool PutEach(xcb_window_t requestor, xcb_atom_t property);
    bool PutForm(xcb_window_t requestor, xcb_atom_t property, const Form& form);
    void PutPart(Transfer& transfer);
    void Count(xcb_window_t requestor, int count);
    [[nodiscard]] std::uint32_t ClientOf(xcb_window_t window) const;

    X11Connection x_;
    xcb_window_t window_;
    xcb_atom_t selection_, targets_, multiple_, timestamp_, atom_pair_, incr_, save_;

    // The thread's.
    std::vector<Form> forms_;
    bool keeps_ = false;
    xcb_timestamp_t since_ = XCB_CURRENT_TIME;
    xcb_timestamp_t server_time_ = XCB_CURRENT_TIME;
    int count_ = 0;                         // which one runs
    std::map<std::uint32_t, int> fetched_;  // by client
    enum class Manager { NotAsked, Asked, Has, HasNot } manager_ = Manager::NotAsked;
    std::vector<Transfer> transfers_;
    std::optional<Next> next_;

    std::mutex mutex_;
    std::condition_variable done_;
    std::vector<std::function<void()>> wishes_;
    std::uint64_t wished_ = 0, carried_out_ = 0;
    bool ends_ = false;
    int wake_;  // read by the thread when there is a wish
    std::thread thread_;
};

}  // namespace corvane::linux_desktop
