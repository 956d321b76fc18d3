// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::engine {

/// Whether a byte goes on with the character that an earlier one has begun.
[[nodiscard]] constexpr bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Bytes of the character at the beginning of a text that is not empty; 1 for a byte that begins
/// none. Every byte of a broken text belongs to a character then, and whoever counts so gets the
/// same positions.
[[nodiscard]] constexpr std::size_t CharacterBytes(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    std::size_t bytes = 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        bytes = 2;
    else if (lead >= 0xE0 && lead <= 0xEF)
        bytes = 3;
    else if (lead >= 0xF0 && lead <= 0xF4)
        bytes = 4;
    if (bytes > text.size()) return 1;
    for (std::size_t i = 1; i < bytes; ++i)
        if (!ContinuesCharacter(text[i])) return 1;
    return bytes;
}

[[nodiscard]] constexpr std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); text.remove_prefix(CharacterBytes(text))) ++count;
    return count;
}

/// Whether a code point can be a character: not 0, no surrogate, not beyond the last one.
[[nodiscard]] constexpr bool IsScalarValue(std::uint32_t code) {
    return code != 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

/// The code point at the beginning of a text that is not empty; 0 where its bytes are none.
[[nodiscard]] constexpr std::uint32_t DecodeUtf8(std::string_view text) {
    const std::size_t bytes = CharacterBytes(text);
    const auto lead = static_cast<unsigned char>(text[0]);
    if (bytes == 1) return lead < 0x80 ? lead : 0;
    std::uint32_t code = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i)
        code = (code << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= kSmallest[bytes] && IsScalarValue(code) ? code : 0;
}

[[nodiscard]] inline std::string EncodeUtf8(std::uint32_t code) {
    const auto tail = [code](unsigned shift) {
        return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
    };
    if (code < 0x80) return {static_cast<char>(code)};
    if (code < 0x800) return {static_cast<char>(0xC0U | (code >> 6U)), tail(0)};
    if (code < 0x10000) return {static_cast<char>(0xE0U | (code >> 12U)), tail(6), tail(0)};
    return {static_cast<char>(0xF0U | (code >> 18U)), tail(12), tail(6), tail(0)};
}

}  // namespace corvane::engine
