// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/send_keys_notation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "linux/text_positions.h"
#include "platform/error.h"

namespace corvane::linux_desktop {
namespace {

struct KeyName {
    std::u32string_view name;
    NamedKey key;
    bool control = false;
};

constexpr auto kNames = std::to_array<KeyName>({
    {U"BACKSPACE", NamedKey::Backspace},
    {U"BKSP", NamedKey::Backspace},
    {U"BREAK", NamedKey::Pause, true},
    {U"BS", NamedKey::Backspace},
    {U"CAPSLOCK", NamedKey::CapsLock},
    {U"CLEAR", NamedKey::Clear},
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
    {U"PRTSC", NamedKey::PrintScreen},
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
    {U"F13", NamedKey::F13},
    {U"F14", NamedKey::F14},
    {U"F15", NamedKey::F15},
    {U"F16", NamedKey::F16},
});

[[noreturn]] void RefuseNotation() {
    throw RuntimeError(kInvalidProcedureCall, "Invalid procedure call or argument");
}

char32_t Capital(char32_t character) {
    return character >= U'a' && character <= U'z' ? character - U'a' + U'A' : character;
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
        case U'\n':
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

KeyStroke CharacterStroke(char32_t character) {
    const bool is_control = character < 0x20 || character == 0x7F;
    return is_control ? ControlStroke(character) : KeyStroke{character};
}

KeyStroke NamedStroke(std::u32string_view name) {
    if (name.size() == 1) return CharacterStroke(name.front());
    for (const KeyName& row : kNames)
        if (std::ranges::equal(name, row.name, {}, Capital))
            return {.key = row.key, .control = row.control};
    RefuseNotation();
}

/// How often a key is struck; at most what the system's Integer holds.
int Repetitions(std::u32string_view digits) {
    constexpr int kMost = 32767;
    if (digits.empty()) RefuseNotation();
    int count = 0;
    for (const char32_t digit : digits) {
        if (digit < U'0' || digit > U'9') RefuseNotation();
        count = count * 10 + static_cast<int>(digit - U'0');
        if (count > kMost) RefuseNotation();
    }
    return count;
}

struct Modifiers {
    bool control = false;
    bool shift = false;
    bool alt = false;

    [[nodiscard]] bool any() const { return control || shift || alt; }
    friend Modifiers operator|(Modifiers a, Modifiers b) {
        return {a.control || b.control, a.shift || b.shift, a.alt || b.alt};
    }
};

class Parser {
public:
    explicit Parser(std::u32string_view keys) : rest_(keys) {}

    std::vector<KeyStroke> Parse() {
        while (!rest_.empty()) ParseNext();
        if (prefix_.any() || !groups_.empty()) RefuseNotation();
        return std::move(strokes_);
    }

private:
    struct Group {
        Modifiers around;   // what is held outside of it
        std::size_t begin;  // its first stroke
    };

    void ParseNext() {
        switch (const char32_t character = Take()) {
            case U'^':
                prefix_.control = true;
                return;
            case U'+':
                prefix_.shift = true;
                return;
            case U'%':
                prefix_.alt = true;
                return;
            case U'(':
                groups_.push_back({held_, strokes_.size()});
                held_ = held_ | std::exchange(prefix_, {});
                return;
            case U')':
                EndGroup();
                return;
            case U'{':
                ParseBraces();
                return;
            case U'}':
                RefuseNotation();
            case U'~':
                Add({NamedKey::Enter}, 1);
                return;
            case U'\r':
                // One key for one line end.
                if (rest_.starts_with(U'\n')) Take();
                Add({NamedKey::Enter}, 1);
                return;
            default:
                Add(CharacterStroke(character), 1);
        }
    }

    char32_t Take() {
        const char32_t character = rest_.front();
        rest_.remove_prefix(1);
        return character;
    }

    void EndGroup() {
        if (groups_.empty() || prefix_.any()) RefuseNotation();
        const Group group = groups_.back();
        groups_.pop_back();
        held_ = group.around;
        if (!held_.any() && strokes_.size() > group.begin) strokes_.back().joined = false;
    }

    void ParseBraces() {
        // The brace that closes may itself be the key, "{}}", and so may a blank, "{ }".
        const std::size_t end = rest_.find(U'}', 1);
        if (end == std::u32string_view::npos) RefuseNotation();
        const std::u32string_view inside = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        const std::size_t blank = inside.find(U' ', 1);
        if (blank == std::u32string_view::npos) return Add(NamedStroke(inside), 1);
        const std::size_t digits = inside.find_first_not_of(U' ', blank);
        if (digits == std::u32string_view::npos) RefuseNotation();
        Add(NamedStroke(inside.substr(0, blank)), Repetitions(inside.substr(digits)));
    }

    void Add(KeyStroke stroke, int count) {
        const Modifiers modifiers = held_ | std::exchange(prefix_, {});
        stroke.control |= modifiers.control;
        stroke.shift |= modifiers.shift;
        stroke.alt |= modifiers.alt;
        stroke.joined = modifiers.any();
        strokes_.insert(strokes_.end(), static_cast<std::size_t>(count), stroke);
        if (count > 0 && !held_.any()) strokes_.back().joined = false;
    }

    std::u32string_view rest_;
    Modifiers prefix_;  // for the next key or group
    Modifiers held_;    // by the groups around
    std::vector<Group> groups_;
    std::vector<KeyStroke> strokes_;
};

}  // namespace

std::vector<KeyStroke> ParseKeys(std::string_view keys) {
    const std::u32string characters = Characters(keys);
    return Parser(characters).Parse();
}

}  // namespace corvane::linux_desktop
