// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as the file of a trained voice: it is refused with a reason, or it is a voice that is
// written and read again as it is.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "engine/adaptation/speaker_transform.h"
#include "require.h"

using namespace corvane::engine;
using corvane::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Whole voices are long and regular: the input is laid over the end of one.
    static const std::string voice =
        WriteTransform(SpeakerTransform::Identity(), "model-of-a-test");
    const std::string input(data, data + size);
    for (const std::string& text : {input, voice.substr(0, voice.size() / 2) + input,
                                    input + voice.substr(std::min(size, voice.size()))}) {
        std::string why;
        const auto read = ReadTransform(text, "model-of-a-test", why);
        Require(read.has_value() == why.empty(), "a refusal has its reason");
        if (!read) continue;
        for (const SpeakerTransform::Stream& stream : read->streams)
            for (const float number : stream.b)
                Require(std::isfinite(number), "a voice is made of numbers");
        const std::string written = WriteTransform(*read, "model-of-a-test");
        const auto again = ReadTransform(written, "model-of-a-test", why);
        Require(again && WriteTransform(*again, "model-of-a-test") == written,
                "a voice is read as it was written");
    }
    return 0;
}
