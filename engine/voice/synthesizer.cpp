// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/synthesizer.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>

#include "engine/espeak_library.h"

namespace corvane::engine {
namespace {

int Collect(short* samples, int count, espeak_EVENT* events) noexcept {
    auto& synthesis = *static_cast<Synthesis*>(events->user_data);
    if (samples != nullptr) synthesis.sound.insert(synthesis.sound.end(), samples, samples + count);
    for (const espeak_EVENT* event = events; event->type != espeakEVENT_LIST_TERMINATED; ++event)
        // Those without a length stand at the ends of clauses.
        if (event->type == espeakEVENT_WORD && event->length > 0 && event->text_position > 0)
            synthesis.beginnings.push_back(
                {.character = static_cast<std::size_t>(event->text_position - 1),
                 .sample = static_cast<std::size_t>(std::max(event->sample, 0))});
    return 0;
}

}  // namespace

bool CanSynthesize() {
    return EspeakLibrary().Usable();
}

Synthesis Synthesize(const std::string& notation, bool ends_sentence) {
    Synthesis synthesis;
    const unsigned flags =
        espeakCHARS_UTF8 | espeakPHONEMES | (ends_sentence ? unsigned{espeakENDPAUSE} : 0U);
    const EspeakLibrary library;
    if (!library.Usable()) return synthesis;
    espeak_SetSynthCallback(&Collect);
    espeak_Synth(notation.c_str(), notation.size() + 1, 0, POS_CHARACTER, 0, flags, nullptr,
                 &synthesis);
    return synthesis;
}

}  // namespace corvane::engine
