// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/user32.h"

/// The desktop shell: the notification area, called the tray, and the recycle bin.
namespace corvane {

enum NotifyIconMessage : std::uint32_t { NIM_ADD = 0, NIM_DELETE = 2 };

enum NotifyIconFlags : std::uint32_t { NIF_MESSAGE = 1, NIF_ICON = 2, NIF_TIP = 4 };

/// The record of one icon in the tray, in its single-byte form.
struct NOTIFYICONDATA {
    std::uint32_t cbSize = 0;
    HWND hWnd = 0;
    std::uint32_t uID = 0;
    std::uint32_t uFlags = 0;
    std::uint32_t uCallbackMessage = 0;
    HICON hIcon = 0;
    std::array<char, 64> szTip{};
};
static_assert(sizeof(NOTIFYICONDATA) == 88);

enum EmptyBinFlags : std::uint32_t { SHERB_NOCONFIRMATION = 1 };

class IShell32 {
public:
    virtual ~IShell32() = default;

    /// Adds the icon, known by hWnd and uID, or takes it away. False when it is there already, or
    /// is not there, or there is no tray. The icon's tip is szTip up to its NUL.
    virtual bool Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data) = 0;

    /// Deletes for good what lies in the person's recycle bin: that of one drive, named by its
    /// letter and ":\\", or with an empty `rootPath` those of all drives. SHERB_NOCONFIRMATION in
    /// `flags` leaves out the question. It returns when the work is done; should that take long,
    /// progress is shown, over the window `owner` if that is seen, the person can cancel, and
    /// messages run meanwhile. A sound may be played at the end. Returns 0 when something was
    /// deleted and nothing is left, and another number when the bin was empty, was not all deleted,
    /// is being emptied already, or there is none. Never raises.
    virtual std::int32_t SHEmptyRecycleBinA(HWND owner, const std::string& rootPath,
                                            std::uint32_t flags) = 0;
};

}  // namespace corvane
