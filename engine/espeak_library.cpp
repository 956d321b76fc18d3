// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/espeak_library.h"

#include <espeak-ng/speak_lib.h>

namespace corvane::engine {
namespace {

std::mutex& LibraryMutex() {
    static std::mutex mutex;
    return mutex;
}

bool SetUpOnce() {
    static const bool set_up =
        espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, nullptr, espeakINITIALIZE_DONT_EXIT) > 0 &&
        espeak_SetVoiceByName("en-us") == EE_OK;
    return set_up;
}

}  // namespace

EspeakLibrary::EspeakLibrary() : lock_(LibraryMutex()), usable_(SetUpOnce()) {}

}  // namespace corvane::engine
