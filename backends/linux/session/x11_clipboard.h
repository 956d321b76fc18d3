// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "linux/session/clipboard.h"
#include "linux/session/x11_connection.h"
#include "linux/session/x11_selection_reader.h"

namespace corvane::linux_desktop {

/// The clipboard of an X11 session: the selection CLIPBOARD, watched by the XFixes extension.
class X11Clipboard final : public Clipboard {
public:
    /// `program` is the connection of our own windows; nullptr if they stand elsewhere.
    explicit X11Clipboard(xcb_connection_t* program);

    Keeper FindKeeper() override;
    std::optional<std::string> ReadText(std::chrono::milliseconds patience) override;
    std::uint32_t Copies() override;

private:
    X11SelectionReader reader_{"CLIPBOARD"};
    X11Connection watch_;
    xcb_connection_t* program_;
    std::optional<std::uint8_t> notify_;  ///< XFixes' event, if there is XFixes
    std::uint32_t copies_ = 0;
};

}  // namespace corvane::linux_desktop
