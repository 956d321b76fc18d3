// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/text_positions.h"

#include <QStringView>
#include <cstddef>

namespace corvane::linux_desktop {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Takes the first character off `text`, which is not empty.
char32_t TakeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    std::size_t bytes = 1;
    char32_t character = lead;
    if (lead >= 0xC2 && lead <= 0xDF) {
        bytes = 2;
        character = lead & 0x1FU;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        bytes = 3;
        character = lead & 0x0FU;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        bytes = 4;
        character = lead & 0x07U;
    } else if (lead >= 0x80) {
        character = kReplacement;
    }
    bool whole = bytes <= text.size();
    for (std::size_t i = 1; whole && i < bytes; ++i) {
        whole = (byte(i) & 0xC0U) == 0x80;
        character = character << 6U | (byte(i) & 0x3FU);
    }
    text.remove_prefix(whole ? bytes : 1);
    const bool is_character =
        whole && character <= 0x10FFFF && !(character >> 11U == 0xD800 >> 11U);
    return is_character ? character : kReplacement;
}

bool TakeLineFeed(std::string_view& text) {
    if (!text.starts_with('\n')) return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

std::u32string Characters(std::string_view text) {
    std::u32string characters;
    while (!text.empty()) characters += TakeCharacter(text);
    return characters;
}

QString ControlText(std::string_view text) {
    QString control_text;
    control_text.reserve(static_cast<qsizetype>(text.size()));
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        if (character == U'\r') {
            TakeLineFeed(text);
            control_text += u'\n';
        } else {
            control_text += QStringView(QChar::fromUcs4(character));
        }
    }
    return control_text;
}

std::string SystemText(const QString& control_text) {
    std::string text = control_text.toStdString();
    std::string with_line_ends;
    with_line_ends.reserve(text.size());
    for (const char character : text) {
        if (character == '\n') with_line_ends += '\r';
        with_line_ends += character;
    }
    return with_line_ends;
}

TextSize SizeOf(std::string_view text) {
    TextSize size;
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        size.characters += character == U'\r' && TakeLineFeed(text) ? 2 : 1;
        size.units += character > 0xFFFF ? 2 : 1;
    }
    return size;
}

int ControlPosition(std::string_view text, std::int32_t position) {
    int units = 0;
    while (position > 0 && !text.empty()) {
        const char32_t character = TakeCharacter(text);
        --position;
        if (character == U'\r' && text.starts_with('\n')) {
            if (position == 0) break;
            TakeLineFeed(text);
            --position;
        }
        units += character > 0xFFFF ? 2 : 1;
    }
    return units;
}

std::int32_t SystemPosition(const QString& control_text, int position) {
    std::int32_t characters = 0;
    const auto end = std::min(static_cast<qsizetype>(position), control_text.size());
    for (qsizetype at = 0; at < end; ++at) {
        const QChar unit = control_text[at];
        if (unit.isLowSurrogate() && at > 0 && control_text[at - 1].isHighSurrogate()) continue;
        characters += unit == u'\n' ? 2 : 1;
    }
    return characters;
}

}  // namespace corvane::linux_desktop
