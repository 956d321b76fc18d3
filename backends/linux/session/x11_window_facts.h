// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "linux/session/windows.h"
#include "linux/session/x11_connection.h"

namespace corvane::linux_desktop {

/// What can be seen of the windows of an X11 session, from what their programs and the window
/// manager have written onto them. No program is asked, so none can keep us waiting.
class X11WindowFacts {
public:
    explicit X11WindowFacts(const X11Connection& x);

    /// Whether a window manager runs that takes requests; it may come and go.
    [[nodiscard]] bool ManagerIsThere() const;

    [[nodiscard]] WindowId Active() const;
    [[nodiscard]] std::vector<WindowId> List() const;
    [[nodiscard]] std::optional<WindowFacts> Describe(WindowId window) const;

    [[nodiscard]] bool IsThere(WindowId window) const;
    [[nodiscard]] bool IsMinimised(WindowId window) const;
    [[nodiscard]] bool IsMaximised(WindowId window) const;
    /// The virtual desktop on which it stands, if the person is on another one.
    [[nodiscard]] std::optional<std::uint32_t> OtherDesktopOf(WindowId window) const;
    /// Whether the box keeps the person from using the window, which is of the same program.
    [[nodiscard]] bool IsModalBoxOf(WindowId box, WindowId window) const;
    /// Whether its program takes part in a protocol such as WM_DELETE_WINDOW.
    [[nodiscard]] bool TakesPartIn(WindowId window, xcb_atom_t protocol) const;

private:
    /// Whether a window manager has it among its windows, not minimised.
    [[nodiscard]] bool IsShown(WindowId window) const;
    /// The window to which the keys go; the root or none if there is no such window.
    [[nodiscard]] xcb_window_t KeyboardWindow() const;
    /// The one that its program made as a whole window, of which the given one is a part.
    [[nodiscard]] WindowId WholeWindow(xcb_window_t part) const;
    [[nodiscard]] bool IsPartOfTheDesktop(WindowId window) const;
    [[nodiscard]] bool HasAtom(xcb_window_t window, xcb_atom_t property, xcb_atom_t atom) const;
    [[nodiscard]] std::string Title(WindowId window) const;
    [[nodiscard]] std::string Application(WindowId window) const;

    const X11Connection& x_;
    xcb_atom_t check_, supported_, active_, client_list_, current_desktop_, desktop_;
    xcb_atom_t type_, type_desktop_, type_dock_;
    xcb_atom_t state_, hidden_, modal_, maximised_across_, maximised_down_, wm_state_;
    xcb_atom_t name_, utf8_string_, pid_, wm_protocols_;
};

}  // namespace corvane::linux_desktop
