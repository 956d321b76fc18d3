// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/controls.h"
#include "platform/language_runtime.h"
#include "platform/user32.h"

namespace corvane::testing {

/// A desktop with windows of the system and of other programs on it, as one backend has it.
class DesktopWorld {
public:
    virtual ~DesktopWorld() = default;
    [[nodiscard]] virtual IUser32& user32() = 0;
    /// Makes windows of the system.
    [[nodiscard]] virtual IWindowToolkit& toolkit() = 0;
    /// Nothing has been copied yet.
    [[nodiscard]] virtual IClipboard& clipboard() = 0;

    /// Another program opens a window, which is in front when this returns. It closes when it is
    /// asked to, and at the latest with the world.
    [[nodiscard]] virtual HWND OpenOther(const std::string& caption) = 0;
    /// Another program copies a text, which is on the clipboard when this returns.
    virtual void CopyElsewhere(const std::string& text) = 0;
    /// Whether a person could see the window if no other stood before it.
    [[nodiscard]] virtual bool CanBeSeen(HWND window) = 0;
    /// Whether it is as large as the screen lets it be.
    [[nodiscard]] virtual bool FillsTheScreen(HWND window) = 0;
    /// Lets messages run until it holds; false when it does not within a generous time.
    [[nodiscard]] virtual bool Becomes(const std::function<bool()>& holds) = 0;
};

[[nodiscard]] std::unique_ptr<DesktopWorld> MakeDesktopWorld();

}  // namespace corvane::testing
