// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as a notation of keys: refused, or strokes that can be typed.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

#include "linux/send_keys_notation.h"
#include "platform/error.h"
#include "require.h"

using namespace corvane;
using namespace corvane::linux_desktop;
using fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Nine bytes may ask for 32767 strokes, and get them.
    const std::string_view notation(reinterpret_cast<const char*>(data),
                                    std::min<std::size_t>(size, 256));
    try {
        const auto strokes = ParseKeys(notation);
        for (const KeyStroke& stroke : strokes) {
            const auto* character = std::get_if<char32_t>(&stroke.key);
            Require(character == nullptr || (*character >= U' ' && *character <= 0x10FFFF),
                    "a key has a character");
            Require(!stroke.joined || stroke.control || stroke.shift || stroke.alt,
                    "only what is held is held on");
        }
        Require(strokes.empty() || !strokes.back().joined, "in the end nothing is held");
    } catch (const RuntimeError& error) {
        Require(error.number() == kInvalidProcedureCall, "a refusal has its number");
    }
    return 0;
}
