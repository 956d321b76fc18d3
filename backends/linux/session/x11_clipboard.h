// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "linux/session/clipboard.h"
#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// The clipboard of an X11 session: the selection CLIPBOARD, watched by the XFixes extension. It is
/// read over a connection of our own, so that no message of ours runs meanwhile.
class X11Clipboard final : public Clipboard {
public:
    /// `program` is the connection of our own windows; nullptr if they stand elsewhere.
    explicit X11Clipboard(xcb_connection_t* program);

    Keeper FindKeeper() override;
    std::optional<std::string> ReadText(std::chrono::milliseconds patience) override;
    std::uint32_t Copies() override;

private:
    using Wanted = std::function<bool(const xcb_generic_event_t&)>;
    class Requestor;

    struct Reply {
        bool answered = false;            ///< false: the keeper has not gone on in time
        std::optional<std::string> text;  ///< nothing: it does not have it in that form
    };

    /// The clipboard in one of the forms in which its keeper may offer it.
    [[nodiscard]] Reply Request(xcb_atom_t form, std::chrono::milliseconds patience);
    /// What arrives in parts, of which each is fetched before the next is sent.
    [[nodiscard]] Reply TakeParts(const Requestor& requestor, std::chrono::milliseconds patience);
    /// Waits for an event; nullptr if it has not come in time.
    [[nodiscard]] XcbReply<xcb_generic_event_t> WaitFor(const Wanted& wanted,
                                                        std::chrono::milliseconds patience);
    /// The next event that has arrived, if there is one.
    [[nodiscard]] XcbReply<xcb_generic_event_t> TakeEvent();

    X11Connection x_;
    xcb_connection_t* program_;
    xcb_atom_t clipboard_, target_, incr_, utf8_string_, plain_utf8_;
    std::optional<std::uint8_t> notify_;  ///< XFixes' event, if there is XFixes
    std::uint32_t copies_ = 0;
};

}  // namespace corvane::linux_desktop
