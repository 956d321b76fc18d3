// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "linux/session/session_answer.h"

/// The windows of all programs on the desktop. Each kind of desktop session has its own way to do
/// it.
namespace corvane::linux_desktop {

/// Number by which the session knows a window, ours included; 0 is no window. It may be stale at
/// any time: its program can close it between two calls.
using WindowId = std::uint32_t;

struct WindowFacts {
    std::string title;             ///< UTF-8
    std::string application;       ///< the name under which the desktop groups windows
    std::optional<pid_t> process;  ///< the program that shows it, if it tells
    bool minimised = false;
    bool maximised = false;
};

class Windows {
public:
    /// The longest time that an act waits for its effect, which comes within a few milliseconds
    /// where nobody refuses and the machine is not busy. The program whose window it is takes no
    /// part in that, so one that hangs delays nobody longer than this.
    static constexpr std::chrono::milliseconds kPatience{1000};

    virtual ~Windows() = default;

    /// The window that has the person's attention; 0 if none has, or only the desktop itself.
    [[nodiscard]] virtual WindowId Active() = 0;
    /// The windows of all programs, on every virtual desktop, minimised ones included.
    [[nodiscard]] virtual std::vector<WindowId> List() = 0;
    /// Nothing for a window that is not there.
    [[nodiscard]] virtual std::optional<WindowFacts> Describe(WindowId window) = 0;

    /// Brings it to the front and gives it the keyboard, wherever it is: behind others, minimised,
    /// on another virtual desktop. A box of its program that keeps the person from using it may
    /// have the front in its stead, or take it from it again.
    virtual SessionAnswer Activate(WindowId window) = 0;
    virtual SessionAnswer Minimise(WindowId window) = 0;
    virtual SessionAnswer Maximise(WindowId window) = 0;
    /// Takes a maximised window back to the size that it had before.
    virtual SessionAnswer NormalSize(WindowId window) = 0;
    /// Asks its program to close it, which may ask its user or refuse; that is not waited for.
    virtual SessionAnswer Close(WindowId window) = 0;
};

}  // namespace corvane::linux_desktop
