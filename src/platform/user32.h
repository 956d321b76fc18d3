// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// The window system's own calls on windows of any program.
namespace corvane {

using HWND = std::uint32_t;   ///< 0 is no window
using HICON = std::uint32_t;  ///< 0 is no icon

enum WindowMessage : std::uint32_t { WM_NCLBUTTONDOWN = 161, WM_MOUSEMOVE = 512 };

/// Where in a window a mouse message was: on its title bar.
enum HitTest : std::uint32_t { HTCAPTION = 2 };

class IUser32 {
public:
    virtual ~IUser32() = default;

    /// Lets go of the mouse, so that the window system may take it.
    virtual bool ReleaseCapture() = 0;

    /// Sends a message to a window and returns what came of it. WM_NCLBUTTONDOWN with HTCAPTION
    /// lets the person move the window as if by its title bar.
    virtual std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                      std::int32_t lParam) = 0;

    /// The colour 0x00BBGGRR of that part of the windows: 15 is the face of buttons, 18 their text.
    /// 0 if there is no such part.
    [[nodiscard]] virtual std::int32_t GetSysColor(std::int32_t index) = 0;
};

}  // namespace corvane
