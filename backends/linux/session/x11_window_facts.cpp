// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_window_facts.h"

#include <algorithm>
#include <utility>

#include "linux/session/x11_properties.h"

namespace corvane::linux_desktop {
namespace {

constexpr std::uint32_t kWithdrawnState = 0;
constexpr std::uint32_t kIconicState = 3;

}  // namespace

X11WindowFacts::X11WindowFacts(const X11Connection& x)
    : x_(x),
      check_(x.Atom("_NET_SUPPORTING_WM_CHECK")),
      supported_(x.Atom("_NET_SUPPORTED")),
      active_(x.Atom("_NET_ACTIVE_WINDOW")),
      client_list_(x.Atom("_NET_CLIENT_LIST")),
      current_desktop_(x.Atom("_NET_CURRENT_DESKTOP")),
      desktop_(x.Atom("_NET_WM_DESKTOP")),
      type_(x.Atom("_NET_WM_WINDOW_TYPE")),
      type_desktop_(x.Atom("_NET_WM_WINDOW_TYPE_DESKTOP")),
      type_dock_(x.Atom("_NET_WM_WINDOW_TYPE_DOCK")),
      state_(x.Atom("_NET_WM_STATE")),
      hidden_(x.Atom("_NET_WM_STATE_HIDDEN")),
      modal_(x.Atom("_NET_WM_STATE_MODAL")),
      maximised_across_(x.Atom("_NET_WM_STATE_MAXIMIZED_HORZ")),
      maximised_down_(x.Atom("_NET_WM_STATE_MAXIMIZED_VERT")),
      wm_state_(x.Atom("WM_STATE")),
      name_(x.Atom("_NET_WM_NAME")),
      utf8_string_(x.Atom("UTF8_STRING")),
      pid_(x.Atom("_NET_WM_PID")),
      wm_protocols_(x.Atom("WM_PROTOCOLS")) {}

bool X11WindowFacts::ManagerIsThere() const {
    // The mark on the root outlives a manager that has crashed; the window that it names does not.
    const auto mark = ReadNumbers(x_, x_.root(), check_, XCB_ATOM_WINDOW);
    return !mark.empty() && ReadNumbers(x_, mark.front(), check_, XCB_ATOM_WINDOW) == mark;
}

WindowId X11WindowFacts::Active() const {
    if (ManagerIsThere()) {
        const auto active = ReadNumbers(x_, x_.root(), active_, XCB_ATOM_WINDOW);
        // Some managers still name the last window when it is hidden or minimised.
        if (!active.empty())
            return IsShown(active.front()) && !IsPartOfTheDesktop(active.front()) ? active.front()
                                                                                  : 0;
    }
    return WholeWindow(KeyboardWindow());
}

std::vector<WindowId> X11WindowFacts::List() const {
    if (ManagerIsThere()) return ReadNumbers(x_, x_.root(), client_list_, XCB_ATOM_WINDOW);
    const auto tree = Answer<xcb_query_tree_reply>(x_, xcb_query_tree(x_.connection(), x_.root()));
    if (!tree) return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    std::vector<WindowId> windows(first, first + xcb_query_tree_children_length(tree.get()));
    // Menus and helpers that nobody sees are children of the root too.
    std::erase_if(windows, [this](WindowId window) {
        const auto attributes = Answer<xcb_get_window_attributes_reply>(
            x_, xcb_get_window_attributes(x_.connection(), window));
        return !attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
               attributes->override_redirect != 0;
    });
    return windows;
}

std::optional<WindowFacts> X11WindowFacts::Describe(WindowId window) const {
    if (!IsThere(window)) return {};
    WindowFacts facts{.title = Title(window),
                      .application = Application(window),
                      .process = {},
                      .minimised = IsMinimised(window),
                      .maximised = IsMaximised(window)};
    const auto process = ReadNumbers(x_, window, pid_, XCB_ATOM_CARDINAL);
    if (!process.empty()) facts.process = static_cast<pid_t>(process.front());
    return facts;
}

bool X11WindowFacts::IsThere(WindowId window) const {
    return window != XCB_WINDOW_NONE && window != x_.root() && x_.usable() &&
           Answer<xcb_get_geometry_reply>(x_, xcb_get_geometry(x_.connection(), window)) != nullptr;
}

bool X11WindowFacts::IsMinimised(WindowId window) const {
    // Some managers keep a minimised window mapped, and some call a window iconic that stands on
    // another virtual desktop; the hidden state is exact where the manager keeps it.
    if (HasAtom(x_.root(), supported_, hidden_)) return HasAtom(window, state_, hidden_);
    const auto state = ReadNumbers(x_, window, wm_state_, wm_state_);
    return !state.empty() && state.front() == kIconicState;
}

bool X11WindowFacts::IsShown(WindowId window) const {
    const auto state = ReadNumbers(x_, window, wm_state_, wm_state_);
    return !state.empty() && state.front() != kWithdrawnState && !IsMinimised(window);
}

bool X11WindowFacts::IsMaximised(WindowId window) const {
    return HasAtom(window, state_, maximised_across_) && HasAtom(window, state_, maximised_down_);
}

std::optional<std::uint32_t> X11WindowFacts::OtherDesktopOf(WindowId window) const {
    constexpr std::uint32_t kOnAll = 0xFFFFFFFF;
    const auto current = ReadNumbers(x_, x_.root(), current_desktop_, XCB_ATOM_CARDINAL);
    const auto its = ReadNumbers(x_, window, desktop_, XCB_ATOM_CARDINAL);
    if (current.empty() || its.empty() || its == current || its.front() == kOnAll) return {};
    return its.front();
}

bool X11WindowFacts::IsModalBoxOf(WindowId box, WindowId window) const {
    if (!HasAtom(box, state_, modal_)) return false;
    const auto program = ReadNumbers(x_, box, pid_, XCB_ATOM_CARDINAL);
    return !program.empty() && program == ReadNumbers(x_, window, pid_, XCB_ATOM_CARDINAL);
}

bool X11WindowFacts::TakesPartIn(WindowId window, xcb_atom_t protocol) const {
    return HasAtom(window, wm_protocols_, protocol);
}

xcb_window_t X11WindowFacts::KeyboardWindow() const {
    const auto focus = Answer<xcb_get_input_focus_reply>(x_, xcb_get_input_focus(x_.connection()));
    if (!focus) return XCB_WINDOW_NONE;
    if (focus->focus != XCB_INPUT_FOCUS_POINTER_ROOT) return focus->focus;
    // The keys go to whatever is below the pointer.
    const auto pointer =
        Answer<xcb_query_pointer_reply>(x_, xcb_query_pointer(x_.connection(), x_.root()));
    return pointer ? pointer->child : xcb_window_t{XCB_WINDOW_NONE};
}

WindowId X11WindowFacts::WholeWindow(xcb_window_t part) const {
    while (part != XCB_WINDOW_NONE && part != x_.root()) {
        // A manager's mark; without a manager it is the one directly on the root.
        if (!ReadNumbers(x_, part, wm_state_, wm_state_).empty()) return part;
        const auto tree = Answer<xcb_query_tree_reply>(x_, xcb_query_tree(x_.connection(), part));
        if (!tree) break;
        if (tree->parent == x_.root()) return part;
        part = tree->parent;
    }
    return 0;
}

bool X11WindowFacts::IsPartOfTheDesktop(WindowId window) const {
    return HasAtom(window, type_, type_desktop_) || HasAtom(window, type_, type_dock_);
}

bool X11WindowFacts::HasAtom(xcb_window_t window, xcb_atom_t property, xcb_atom_t atom) const {
    const auto atoms = ReadNumbers(x_, window, property, XCB_ATOM_ATOM);
    return std::ranges::find(atoms, atom) != atoms.end();
}

std::string X11WindowFacts::Title(WindowId window) const {
    PropertyBytes title = ReadBytes(x_, window, name_);
    if (title.type == XCB_ATOM_NONE) title = ReadBytes(x_, window, XCB_ATOM_WM_NAME);
    // An older form for several languages is Latin-1 too, as long as no other language occurs.
    return title.type == utf8_string_ ? std::move(title.bytes) : Utf8OfLatin1(title.bytes);
}

std::string X11WindowFacts::Application(WindowId window) const {
    // Two names, each with a zero byte behind it: that of this start, that of the program.
    const std::string names = ReadBytes(x_, window, XCB_ATOM_WM_CLASS).bytes;
    const auto second = names.find('\0');
    if (second == std::string::npos) return Utf8OfLatin1(names);
    return Utf8OfLatin1(names.substr(second + 1, names.find('\0', second + 1) - second - 1));
}

}  // namespace corvane::linux_desktop
