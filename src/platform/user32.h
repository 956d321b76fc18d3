// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// The window system's own calls on windows of any program.
namespace corvane {

struct FORMATRANGE;

using HWND = std::uint32_t;   ///< 0 is no window
using HICON = std::uint32_t;  ///< 0 is no icon

enum WindowMessage : std::uint32_t {
    WM_NCLBUTTONDOWN = 161,
    WM_MOUSEMOVE = 512,
    EM_FORMATRANGE = 1081,
};

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

    /// EM_FORMATRANGE to a rich text control: lays out the characters `range->chrg` in the
    /// rectangle `range->rc`, wrapped at words, and draws them there unless `wParam` is 0, which
    /// only measures. Returns the position of the first character that had no room, the length of
    /// the text when all had. At least one line is laid out where text is left, however small the
    /// rectangle, so that whoever goes on from the answer comes to an end. The layout is kept for
    /// the next call; no range frees it. An unknown window and any other message return 0; a page
    /// that can't be drawn on raises kPrinterError.
    virtual std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                      const FORMATRANGE* range) = 0;

    /// The colour 0x00BBGGRR of that part of the windows: 15 is the face of buttons, 18 their text.
    /// 0 if there is no such part.
    [[nodiscard]] virtual std::int32_t GetSysColor(std::int32_t index) = 0;
};

}  // namespace corvane
