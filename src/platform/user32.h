// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// The window system's own calls on windows of any program.
namespace corvane {

struct FORMATRANGE;

using HWND = std::uint32_t;   ///< 0 is no window
using HICON = std::uint32_t;  ///< 0 is no icon

enum WindowMessage : std::uint32_t {
    WM_CLOSE = 16,
    WM_NCLBUTTONDOWN = 161,
    WM_MOUSEMOVE = 512,
    EM_FORMATRANGE = 1081,
};

/// Where in a window a mouse message was: on its title bar.
enum HitTest : std::uint32_t { HTCAPTION = 2 };

/// How a window is to be shown. Each but the two that minimise makes a hidden window visible and
/// active; a hidden window that is minimised is on the desktop as a minimised one.
enum ShowCommand : std::int32_t {
    SW_SHOWNORMAL = 1,     ///< at its normal size and place, from minimised or maximised
    SW_SHOWMINIMIZED = 2,  ///< minimised, and active all the same
    SW_SHOWMAXIMIZED = 3,  ///< as large as the screen, also where it has no button for that
    SW_SHOW = 5,           ///< at the size and place that it has
    SW_MINIMIZE = 6,       ///< minimised; the next window takes the front
    SW_RESTORE = 9,        ///< from minimised to what it was, from maximised to its normal size
};

/// What becomes of the session; to be added up.
enum ExitFlags : std::uint32_t { EWX_SHUTDOWN = 1, EWX_REBOOT = 2, EWX_POWEROFF = 8 };

/// Handles are those of top-level windows of any program; one of the system's own windows is known
/// here by the same handle that its peer gives (IWindowPeer::hWnd). A handle whose window has gone
/// is no error: each call then does nothing and returns 0 or false. Nothing here raises, but for
/// the layout of a text, which is asked of a control by the handle of its own (ITextPeer::hWnd).
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

    /// The window that has the person's attention; 0 when none has.
    [[nodiscard]] virtual HWND GetForegroundWindow() = 0;

    /// Length of a window's caption in bytes, without a NUL.
    [[nodiscard]] virtual std::int32_t GetWindowTextLengthA(HWND hWnd) = 0;

    /// Copies a window's caption, UTF-8, into `buffer`: at most `count` bytes, a NUL at the end
    /// among them. Returns the bytes copied without the NUL. With a count of 0 nothing is touched
    /// and 0 returned. The caller owns the buffer.
    virtual std::int32_t GetWindowTextA(HWND hWnd, char* buffer, std::int32_t count) = 0;

    /// Puts a message at the end of a window's queue and returns at once: true when it was put
    /// there, whatever comes of it. WM_CLOSE asks the window to close as its frame's button does;
    /// its program may ask the person first, or refuse. A window of the system itself gets it as a
    /// message of the loop, as when a person closes it. Other messages do nothing.
    virtual bool PostMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              std::int32_t lParam) = 0;

    /// Identifier of the thread that owns a window: the same for two windows only if one thread
    /// owns both; 0 for no window. `processId`, where not null, receives the process's.
    virtual std::uint32_t GetWindowThreadProcessId(HWND hWnd, std::uint32_t* processId) = 0;

    /// Joins the input of two threads, so that what one of them may the other may too, or parts it
    /// again; any `fAttach` but 0 joins. False when it can't be done, as with a number that is no
    /// thread's. A window system that has nothing of the kind does nothing, and that succeeds.
    virtual bool AttachThreadInput(std::uint32_t idAttach, std::uint32_t idAttachTo,
                                   std::int32_t fAttach) = 0;

    /// Brings a window to the front and gives it the keyboard. A hidden one stays hidden, a
    /// minimised one need not come back: ShowWindow is what makes a window seen. Returns false, and
    /// does nothing, when the window system refuses, which it may while neither the caller's thread
    /// nor one that it is joined with owns the foreground window.
    virtual bool SetForegroundWindow(HWND hWnd) = 0;

    /// Whether a window is minimised.
    [[nodiscard]] virtual bool IsIconic(HWND hWnd) = 0;

    /// Sets a window's show state; `nCmdShow` is a ShowCommand. Returns whether it was visible
    /// before, as a minimised window is and a hidden one is not.
    virtual bool ShowWindow(HWND hWnd, std::int32_t nCmdShow) = 0;

    /// Begins to end the session, as the ExitFlags in `flags` say, and returns; programs may ask
    /// about unsaved work. `reserved` means nothing. False, and nothing happens, when the caller's
    /// token does not have the privilege "SeShutdownPrivilege" switched on or the machine refuses.
    virtual bool ExitWindowsEx(std::uint32_t flags, std::uint32_t reserved) = 0;

    /// The colour 0x00BBGGRR of that part of the windows: 15 is the face of buttons, 18 their text.
    /// 0 if there is no such part.
    [[nodiscard]] virtual std::int32_t GetSysColor(std::int32_t index) = 0;
};

}  // namespace corvane
