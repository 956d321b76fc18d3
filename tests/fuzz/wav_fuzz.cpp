// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as a sound file: refused, or as much sound as its bytes may hold.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/audio/wav_file.h"
#include "platform/error.h"
#include "require.h"

using namespace corvane;
using fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const auto sound = engine::ParseWav({reinterpret_cast<const char*>(data), size});
        // At most a sample a byte, from 4 kHz to the engine's 16.
        Require(sound.size() <= 4 * size + 4, "no sound out of nothing");
    } catch (const RuntimeError& error) {
        Require(error.number() == kAutomationError, "a refusal has its number");
    }
    return 0;
}
