// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_windows.h"

namespace corvane::linux_desktop {

X11Windows::X11Windows(xcb_connection_t* program) : program_(program) {}

WindowId X11Windows::Active() {
    FinishWhatOurWindowsAskedFor();
    return facts_.Active();
}

std::vector<WindowId> X11Windows::List() {
    FinishWhatOurWindowsAskedFor();
    return facts_.List();
}

std::optional<WindowFacts> X11Windows::Describe(WindowId window) {
    FinishWhatOurWindowsAskedFor();
    return facts_.Describe(window);
}

SessionAnswer X11Windows::Activate(WindowId window) {
    return Do(&X11WindowActs::Activate, window);
}

SessionAnswer X11Windows::Minimise(WindowId window) {
    return Do(&X11WindowActs::Minimise, window);
}

SessionAnswer X11Windows::Maximise(WindowId window) {
    return Do(&X11WindowActs::Maximise, window);
}

SessionAnswer X11Windows::NormalSize(WindowId window) {
    return Do(&X11WindowActs::NormalSize, window);
}

SessionAnswer X11Windows::Close(WindowId window) {
    return Do(&X11WindowActs::Close, window);
}

SessionAnswer X11Windows::Do(Act act, WindowId window) {
    FinishWhatOurWindowsAskedFor();
    x_.DropEvents();
    if (!facts_.IsThere(window)) return SessionAnswer::Denied;
    // Managers come and go while we run.
    X11WindowActs& acts = facts_.ManagerIsThere() ? static_cast<X11WindowActs&>(manager_)
                                                  : static_cast<X11WindowActs&>(bare_screen_);
    return (acts.*act)(window);
}

void X11Windows::FinishWhatOurWindowsAskedFor() const {
    // Two connections are not in step by themselves.
    if (program_ == nullptr) return;
    std::free(xcb_get_input_focus_reply(program_, xcb_get_input_focus(program_), nullptr));
}

}  // namespace corvane::linux_desktop
