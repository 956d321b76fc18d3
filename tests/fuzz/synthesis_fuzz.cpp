// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as a text that is synthesised: each word is marked once, in its order, in the sound.
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <variant>

#include "engine/voice/utterance.h"
#include "require.h"

using namespace corvane::engine;
using corvane::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    std::size_t behind = 0;
    for (Utterance utterance(text, true); !utterance.Done();) {
        const Spoken spoken = utterance.Next();
        std::int64_t sample = 0;
        for (const Mark& mark : spoken.marks) {
            const auto* word = std::get_if<Word>(&mark.what);
            const bool in_order =
                mark.sample >= sample && (word == nullptr || word->position >= behind);
            Require(in_order && mark.sample <= std::ssize(spoken.sound), "marks stand in order");
            sample = mark.sample;
            if (word != nullptr) behind = word->position + word->length;
        }
    }
    return 0;
}
