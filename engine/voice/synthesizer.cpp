// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/voice/synthesizer.h"

#include <espeak-ng/speak_lib.h>

#include <cstddef>
#include <string>

#include "engine/espeak_library.h"

namespace corvane::engine {
namespace {

using Samples = std::vector<std::int16_t>;

int Collect(short* samples, int count, espeak_EVENT* events) noexcept {
    auto& sound = *static_cast<Samples*>(events->user_data);
    if (samples != nullptr) sound.insert(sound.end(), samples, samples + count);
    return 0;
}

}  // namespace

bool CanSynthesize() {
    return EspeakLibrary().Usable();
}

std::vector<std::int16_t> Synthesize(const Piece& piece) {
    Samples sound;
    if (piece.spans.empty()) {
        sound.resize(static_cast<std::size_t>(piece.silence.count() * kVoiceRate / 1000));
        return sound;
    }
    const std::string text = Notation(piece);
    const unsigned flags =
        espeakCHARS_UTF8 | espeakPHONEMES | (piece.ends_sentence ? unsigned{espeakENDPAUSE} : 0U);

    const EspeakLibrary library;
    if (!library.Usable()) return sound;
    espeak_SetSynthCallback(&Collect);
    espeak_Synth(text.c_str(), text.size() + 1, 0, POS_CHARACTER, 0, flags, nullptr, &sound);
    return sound;
}

}  // namespace corvane::engine
