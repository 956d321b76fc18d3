// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace corvane {
namespace {

/// Bytes of the character that starts at `text[at]`; 1 for a byte that starts none.
std::size_t CharacterBytes(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    std::size_t bytes = 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        bytes = 2;
    else if (lead >= 0xE0 && lead <= 0xEF)
        bytes = 3;
    else if (lead >= 0xF0 && lead <= 0xF4)
        bytes = 4;
    if (at + bytes > text.size()) return 1;
    for (std::size_t i = 1; i < bytes; ++i)
        if ((byte(at + i) & 0xC0) != 0x80) return 1;
    return bytes;
}

/// Byte offset of the character `characters` further on than byte `from`, at most the text's end.
std::size_t Advance(std::string_view text, std::size_t from, Long characters) {
    std::size_t at = from;
    for (Long left = characters; left > 0 && at < text.size(); left -= 1)
        at += CharacterBytes(text, at);
    return at;
}

void RequirePosition(Long start) {
    if (start < 1) throw RuntimeError(kInvalidProcedureCall, "Invalid procedure call or argument");
}

void RequireLength(Long length) {
    if (length < 0) throw RuntimeError(kInvalidProcedureCall, "Invalid procedure call or argument");
}

}  // namespace

Long Len(std::string_view text) {
    std::int64_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        // The log is measured at each of its lines: plain letters go eight at a time.
        if (std::uint64_t eight = 0; at + sizeof eight <= text.size()) {
            std::memcpy(&eight, text.data() + at, sizeof eight);
            if ((eight & 0x8080808080808080U) == 0) {
                count += sizeof eight;
                at += sizeof eight;
                continue;
            }
        }
        at += CharacterBytes(text, at);
        ++count;
    }
    return count;
}

std::string Left(std::string_view text, Long length) {
    RequireLength(length);
    return std::string(text.substr(0, Advance(text, 0, length)));
}

std::string Mid(std::string_view text, Long start, Long length) {
    RequirePosition(start);
    RequireLength(length);
    const std::size_t from = Advance(text, 0, start - 1);
    return std::string(text.substr(from, Advance(text, from, length) - from));
}

Long InStr(Long start, std::string_view text, std::string_view sought) {
    RequirePosition(start);
    if (sought.empty()) return start <= Len(text) ? start : Long(0);
    // Character by character, so that a match never begins in the middle of one.
    std::int64_t position = start.rep();
    for (std::size_t at = Advance(text, 0, start - 1); at < text.size();
         at += CharacterBytes(text, at), ++position)
        if (text.substr(at).starts_with(sought)) return position;
    return 0;
}

std::string LCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return lower;
}

std::string UCase(std::string_view text) {
    std::string upper(text);
    for (char& letter : upper)
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    return upper;
}

std::string LastCharacter(std::string_view text) {
    return text.empty() ? std::string() : Mid(text, Len(text), 1);
}

std::string Chr(Long code) {
    if (code < 0 || code > 255)
        throw RuntimeError(kInvalidProcedureCall, "Invalid procedure call or argument");
    const auto character = static_cast<unsigned>(code.rep());
    if (character < 0x80) return {static_cast<char>(character)};
    return {static_cast<char>(0xC0 | (character >> 6)),
            static_cast<char>(0x80 | (character & 0x3F))};
}

std::string CStr(const Variant& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    return number ? std::to_string(*number) : std::string();
}

}  // namespace corvane
