// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_keyboard.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <cstddef>
#include <variant>

namespace corvane::linux_desktop {
namespace {

/// In the order of NamedKey.
constexpr auto kNamedSymbols = std::to_array<xcb_keysym_t>({
    XKB_KEY_BackSpace, XKB_KEY_Caps_Lock, XKB_KEY_Clear,    XKB_KEY_Delete,      XKB_KEY_Down,
    XKB_KEY_End,       XKB_KEY_Return,    XKB_KEY_Escape,   XKB_KEY_Help,        XKB_KEY_Home,
    XKB_KEY_Insert,    XKB_KEY_Left,      XKB_KEY_Num_Lock, XKB_KEY_Next,        XKB_KEY_Prior,
    XKB_KEY_Pause,     XKB_KEY_Print,     XKB_KEY_Right,    XKB_KEY_Scroll_Lock, XKB_KEY_Tab,
    XKB_KEY_Up,        XKB_KEY_F1,        XKB_KEY_F2,       XKB_KEY_F3,          XKB_KEY_F4,
    XKB_KEY_F5,        XKB_KEY_F6,        XKB_KEY_F7,       XKB_KEY_F8,          XKB_KEY_F9,
    XKB_KEY_F10,       XKB_KEY_F11,       XKB_KEY_F12,      XKB_KEY_F13,         XKB_KEY_F14,
    XKB_KEY_F15,       XKB_KEY_F16,
});
static_assert(kNamedSymbols.size() == static_cast<std::size_t>(NamedKey::F16) + 1);

constexpr xkb_keycode_t kCodes = 256;

struct ReleaseContext {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};
using ContextPtr = std::unique_ptr<xkb_context, ReleaseContext>;

ContextPtr MakeContext() {
    ContextPtr context(xkb_context_new(static_cast<xkb_context_flags>(
        XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES)));
    // A layout's small mistakes are nothing that the person could mend here.
    if (context) xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    return context;
}

/// The number block's keys: programs may take them for commands, and Num Lock changes them.
bool IsOfNumberBlock(xcb_keysym_t symbol) {
    return symbol >= XKB_KEY_KP_Space && symbol <= XKB_KEY_KP_Equal;
}

}  // namespace

xcb_keysym_t SymbolOf(const KeyStroke& stroke) {
    if (const auto* key = std::get_if<NamedKey>(&stroke.key))
        return kNamedSymbols.at(static_cast<std::size_t>(*key));
    return xkb_utf32_to_keysym(std::get<char32_t>(stroke.key));
}

X11Keyboard::X11Keyboard(const X11Connection& x) {
    const ContextPtr context = MakeContext();
    xcb_connection_t* connection = x.connection();
    if (!context || !x.usable() ||
        xkb_x11_setup_xkb_extension(
            connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr) == 0)
        return;
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    if (device == -1) return;
    keymap_.reset(xkb_x11_keymap_new_from_device(context.get(), connection, device,
                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap_) return;
    const StatePtr now(xkb_x11_state_new_from_device(keymap_.get(), connection, device));
    const auto pressed = Answer<xcb_query_keymap_reply>(x, xcb_query_keymap(connection));
    if (!now || !pressed) return;
    std::ranges::copy(pressed->keys, down_.begin());
    layout_ = xkb_state_serialize_layout(now.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    depressed_ = xkb_state_serialize_mods(now.get(), XKB_STATE_MODS_DEPRESSED);
    locked_ = xkb_state_serialize_mods(now.get(), XKB_STATE_MODS_LOCKED);
    for (xkb_keycode_t code = xkb_keymap_min_keycode(keymap_.get()); code < kCodes; ++code)
        codes_.push_back(static_cast<xcb_keycode_t>(code));
    ReadModifiers();
    ReadSymbols();
}

xkb_mod_mask_t X11Keyboard::MaskOf(const char* modifier) const {
    const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap_.get(), modifier);
    return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

X11Keyboard::StatePtr X11Keyboard::Untouched() const {
    StatePtr state(xkb_state_new(keymap_.get()));
    xkb_state_update_mask(state.get(), 0, 0, 0, 0, 0, layout_);
    return state;
}

void X11Keyboard::ReadModifiers() {
    for (const xcb_keycode_t code : codes_) ReadModifier(code);
}

void X11Keyboard::ReadModifier(xcb_keycode_t code) {
    // What a key does is found out by striking it on a keyboard that nobody else uses.
    const StatePtr state = Untouched();
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(state.get(), code);
    xkb_state_update_key(state.get(), code, XKB_KEY_DOWN);
    const xkb_mod_mask_t while_down =
        xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_DEPRESSED);
    xkb_state_update_key(state.get(), code, XKB_KEY_UP);
    const xkb_mod_mask_t left = xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_EFFECTIVE);

    const xkb_mod_mask_t lock = MaskOf(XKB_MOD_NAME_CAPS);
    if ((left & lock & locked_) != 0 && lock_in_force_ == 0) lock_in_force_ = code;
    if (while_down == 0 || left != 0) return;
    // The server may think that a key is down long after the finger has left it, when something
    // else than the finger had pressed it last; what counts is that its modifier is in force.
    if (IsDown(code) && (while_down & depressed_) != 0) held_.push_back(code);
    const auto choose = [&](Modifier& chosen) {
        if (chosen.code == 0) chosen = {code, while_down};
    };
    if (while_down == MaskOf(XKB_MOD_NAME_SHIFT)) choose(shift_);
    if (while_down == MaskOf(XKB_MOD_NAME_CTRL)) choose(control_);
    if (symbol == XKB_KEY_Alt_L || symbol == XKB_KEY_Alt_R) choose(alt_);
    if (symbol == XKB_KEY_ISO_Level3_Shift) choose(level3_);
}

void X11Keyboard::ReadSymbols() {
    // Locks that stay in force while we type: all but the one that we can take off.
    const xkb_mod_mask_t locked =
        lock_in_force_ == 0 ? locked_ : locked_ & ~MaskOf(XKB_MOD_NAME_CAPS);
    const StatePtr state = Untouched();
    // The fewest modifiers first.
    for (const bool level3 : {false, true}) {
        for (const bool shift : {false, true}) {
            if ((shift && shift_.code == 0) || (level3 && level3_.code == 0)) continue;
            const xkb_mod_mask_t held = (shift ? shift_.mask : 0) | (level3 ? level3_.mask : 0);
            xkb_state_update_mask(state.get(), held, 0, locked, 0, 0, layout_);
            ReadSymbols(*state, {.code = 0, .shift = shift, .level3 = level3});
        }
    }
}

void X11Keyboard::ReadSymbols(xkb_state& state, KeyPosition level) {
    for (const xcb_keycode_t code : codes_) {
        level.code = code;
        if (xkb_keymap_num_layouts_for_key(keymap_.get(), code) == 0) {
            const bool first_look = !level.shift && !level.level3;
            if (first_look && !IsDown(code)) spare_.push_back(code);
            continue;
        }
        const xkb_keysym_t symbol = xkb_state_key_get_one_sym(&state, code);
        if (symbol == XKB_KEY_NoSymbol || IsOfNumberBlock(symbol)) continue;
        symbols_.try_emplace(symbol, level);
        // A dead key has no character.
        if (const std::uint32_t character = xkb_keysym_to_utf32(symbol); character != 0)
            characters_.try_emplace(static_cast<char32_t>(character), level);
    }
}

std::optional<KeyPosition> X11Keyboard::Find(const KeyStroke& stroke) const {
    const auto look_up = [](const auto& map, auto key) -> std::optional<KeyPosition> {
        const auto found = map.find(key);
        if (found == map.end()) return std::nullopt;
        return found->second;
    };
    if (const auto* character = std::get_if<char32_t>(&stroke.key))
        return look_up(characters_, *character);
    return look_up(symbols_, SymbolOf(stroke));
}

}  // namespace corvane::linux_desktop
