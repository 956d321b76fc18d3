// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/send_keys_notation.h"

#include <algorithm>
#include <array>
#include <string>

#include "linux/text_positions.h"
#include "platform/error.h"

namespace corvane::linux_desktop {
namespace {

struct KeyName {
    std::u32string_view name;
    NamedKey key;
};

constexpr auto kNames = std::to_array<KeyName>({
    {U"BACKSPACE", NamedKey::Backspace},
    {U"BKSP", NamedKey::Backspace},
    {U"BS", NamedKey::Backspace},
    {U"CAPSLOCK", NamedKey::CapsLock},
    {U"DEL", NamedKey::Delete},
    {U"DELETE", NamedKey::Delete},
    {U"DOWN", NamedKey::Down},
    {U"END", NamedKey::End},
    {U"ENTER", NamedKey::Enter},
    {U"ESC", NamedKey::Escape},
    {U"HELP", NamedKey::Help},
    {U"HOME", NamedKey::Home},
    {U"INS", NamedKey::Insert},
    {U"INSERT", NamedKey::Insert},
    {U"LEFT", NamedKey::Left},
    {U"NUMLOCK", NamedKey::NumLock},
    {U"PGDN", NamedKey::PageDown},
    {U"PGUP", NamedKey::PageUp},
    {U"RIGHT", NamedKey::Right},
    {U"SCROLLLOCK", NamedKey::ScrollLock},
    {U"TAB", NamedKey::Tab},
    {U"UP", NamedKey::Up},
    {U"F1", NamedKey::F1},
    {U"F2", NamedKey::F2},
    {U"F3", NamedKey::F3},
    {U"F4", NamedKey::F4},
    {U"F5", NamedKey::F5},
    {U"F6", NamedKey::F6},
    {U"F7", NamedKey::F7},
    {U"F8", NamedKey::F8},
    {U"F9", NamedKey::F9},
    {U"F10", NamedKey::F10},
    {U"F11", NamedKey::F11},
    {U"F12", NamedKey::F12},
});

[[noreturn]] void RefuseNotation() {
    throw RuntimeError(kInvalidProcedureCall, "Invalid procedure call or argument");
}

char32_t Capital(char32_t character) {
    return character >= U'a' && character <= U'z' ? character - U'a' + U'A' : character;
}

std::variant<char32_t, NamedKey> BracedKey(std::u32string_view name) {
    if (name.size() == 1) return name.front();
    for (const KeyName& row : kNames)
        if (std::ranges::equal(name, row.name, {}, Capital)) return row.key;
    RefuseNotation();
}

/// A control character is the combination of keys that makes it.
KeyStroke ControlStroke(char32_t character) {
    constexpr char32_t kDelete = 0x7F;
    switch (character) {
        case U'\b':
            return {NamedKey::Backspace};
        case U'\t':
            return {NamedKey::Tab};
        case U'\r':
            return {NamedKey::Enter};
        case U'\x1B':
            return {NamedKey::Escape};
        case kDelete:
            return {.key = NamedKey::Backspace, .control = true};
        default:
            break;
    }
    const char32_t letter = character + U'@';
    // The small letter: a capital would bring Shift along.
    const bool is_letter = letter >= U'A' && letter <= U'Z';
    return {.key = is_letter ? letter - U'A' + U'a' : letter, .control = true};
}

constexpr bool IsControl(char32_t character) {
    return character < 0x20 || character == 0x7F;
}

}  // namespace

std::vector<KeyStroke> ParseKeys(std::string_view keys) {
    const std::u32string characters = Characters(keys);
    std::vector<KeyStroke> strokes;
    KeyStroke next;
    bool modified = false;
    for (std::size_t at = 0; at < characters.size(); ++at) {
        const char32_t character = characters[at];
        if (character == U'^' || character == U'+' || character == U'%') {
            (character == U'^' ? next.control : character == U'+' ? next.shift : next.alt) = true;
            modified = true;
            continue;
        }
        if (character == U'{') {
            // The brace that closes may itself be the key: "{}}".
            const std::size_t end = characters.find(U'}', at + 2);
            if (end == std::u32string::npos) RefuseNotation();
            next.key = BracedKey(std::u32string_view(characters).substr(at + 1, end - at - 1));
            at = end;
        } else if (character == U'~') {
            next.key = NamedKey::Enter;
        } else if (character == U'}' || character == U'(' || character == U')') {
            RefuseNotation();
        } else if (IsControl(character)) {
            const KeyStroke combination = ControlStroke(character);
            next.key = combination.key;
            next.control |= combination.control;
        } else {
            next.key = character;
        }
        strokes.push_back(next);
        next = {};
        modified = false;
    }
    if (modified) RefuseNotation();
    return strokes;
}

}  // namespace corvane::linux_desktop
