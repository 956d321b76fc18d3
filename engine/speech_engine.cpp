// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/speech_engine.h"

#include <utility>

#include "engine/recogniser/reco_context.h"
#include "engine/recogniser/recogniser.h"
#include "engine/user_profile.h"
#include "engine/voice/voice.h"

namespace corvane {

SpeechEngineConfig::SpeechEngineConfig()
    : acoustic_model(CORVANE_MODEL_FOLDER "/en-us/en-us"),
      dictionary(CORVANE_MODEL_FOLDER "/en-us/cmudict-en-us.dict"),
      language_model(CORVANE_MODEL_FOLDER "/en-us/en-us.lm.bin") {}

SpeechEngine::SpeechEngine(SpeechEngineConfig config, Post post,
                           std::unique_ptr<engine::AudioSource> source)
    : config_(std::move(config)), post_(std::move(post)), source_(std::move(source)) {}

SpeechEngine::~SpeechEngine() {
    if (recogniser_) recogniser_->Stop();
    for (const auto& voice : voices_)
        if (const auto alive = voice.lock()) alive->StopPosting();
}

std::shared_ptr<ISpeechRecoContext> SpeechEngine::CreateSpSharedRecoContext() {
    if (!recogniser_)
        recogniser_ = std::make_shared<engine::Recogniser>(
            engine::DictationModel{.acoustic_model = config_.acoustic_model,
                                   .dictionary = config_.dictionary,
                                   .language_model = config_.language_model,
                                   .voice = {},
                                   .personal = {}},
            *source_, post_, config_.unmatched, Profile(), config_.dialogs);
    return engine::RecoContext::Create(recogniser_);
}

std::shared_ptr<engine::UserProfile> SpeechEngine::Profile() {
    if (!profile_)
        profile_ = std::make_shared<engine::UserProfile>(
            engine::UserProfile::Places{.folder = config_.user_folder,
                                        .acoustic_model = config_.acoustic_model,
                                        .dictionary = config_.dictionary},
            config_.complain);
    return profile_;
}

std::shared_ptr<ISpeechVoice> SpeechEngine::CreateSpVoice() {
    std::erase_if(voices_, [](const auto& voice) { return voice.expired(); });
    auto voice = std::make_shared<engine::Voice>(config_.client_name, post_);
    voices_.push_back(voice);
    return voice;
}

void SpeechEngine::WaitForEndOfStream() {
    if (recogniser_) recogniser_->WaitForEndOfStream();
}

}  // namespace corvane
