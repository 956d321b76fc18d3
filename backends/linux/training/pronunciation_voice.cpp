// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/pronunciation_voice.h"

#include "engine/voice/phones.h"
#include "platform/speech_api.h"

namespace corvane::linux_desktop {

void PronunciationVoice::Say(const std::string& phones) {
    if (!voice_) voice_ = std::make_unique<engine::Voice>(client_name_, engine::Voice::Post());
    voice_->Speak("<pron sym=\"" + engine::PronunciationOf(phones) + "\"/>",
                  SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML);
}

void PronunciationVoice::Hush() {
    if (voice_) voice_->Speak("", SVSFlagsAsync + SVSFPurgeBeforeSpeak);
}

}  // namespace corvane::linux_desktop
