// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/audio/audio_source.h"
#include "engine/engine_dialogs.h"
#include "platform/speech_api.h"

namespace corvane {

namespace engine {
class Recogniser;
class UserProfile;
class Voice;
struct RecognisedPhrase;
}  // namespace engine

/// Where the engine finds what it needs. The defaults name the installed packages' files.
struct SpeechEngineConfig {
    SpeechEngineConfig();

    std::string acoustic_model;  ///< folder of a PocketSphinx acoustic model, 16 kHz, US English
    std::string dictionary;      ///< words and their phones, in the dictionary format of that model
    std::string language_model;  ///< n-grams of the dictionary's words, for dictation
    std::string client_name = "KT Corvane";  ///< what the user's sound settings call the voice

    /// Where the voice and the words of whoever speaks are kept; made when there is something to
    /// keep. Empty: they are forgotten with the engine.
    std::string user_folder;
    /// Told a line for people of what can't be used of that folder; may be empty.
    std::function<void(const std::string&)> complain;
    /// For DisplayUI, which without raises.
    std::shared_ptr<EngineDialogs> dialogs;

    /// Told of speech in which nothing was heard, as a message like an event: a phrase without
    /// words, or with those of a reading so unlikely that nobody else is told of it. For tools; may
    /// be empty.
    std::function<void(const engine::RecognisedPhrase&)> unmatched;
};

/// A speech engine that stands alone: a recogniser of command grammars and of dictation on the
/// sound of one source, shared by any number of contexts, and voices on the default audio output.
///
/// Hands out the objects of speech_api.h; they and the engine are for one thread, the message
/// loop's. Threads of the engine's own, one that reads the source and one for each voice, hand
/// every event to `post`, which must be callable from any thread and run the message later on the
/// loop's. Objects may outlive the engine; they hear and tell nothing more then.
///
/// Sound is first read when some context sets an event interest other than 0.
class SpeechEngine final : public ISpeechApi {
public:
    using Post = std::function<void(std::function<void()>)>;

    SpeechEngine(SpeechEngineConfig config, Post post, std::unique_ptr<engine::AudioSource> source);
    /// Stops listening: `post` is not called any more. Returns when the engine's threads have
    /// ended.
    ~SpeechEngine() override;
    SpeechEngine(const SpeechEngine&) = delete;
    SpeechEngine& operator=(const SpeechEngine&) = delete;

    /// The first call loads the acoustic model; raises kAutomationError when it or the dictionary
    /// can't be read. A new context has no event interests.
    [[nodiscard]] std::shared_ptr<ISpeechRecoContext> CreateSpSharedRecoContext() override;

    /// Raises kAutomationError when no voice is installed. A missing sound server is no error.
    [[nodiscard]] std::shared_ptr<ISpeechVoice> CreateSpVoice() override;

    /// Waits until the source has come to its end and all events of it were posted; for files,
    /// since a microphone has no end. Returns at once when nothing listens.
    void WaitForEndOfStream();

    /// Voice and words of whoever speaks; the same for as long as the engine is there.
    [[nodiscard]] std::shared_ptr<engine::UserProfile> Profile();

private:
    SpeechEngineConfig config_;
    Post post_;
    std::unique_ptr<engine::AudioSource> source_;
    std::shared_ptr<engine::UserProfile> profile_;
    std::shared_ptr<engine::Recogniser> recogniser_;
    std::vector<std::weak_ptr<engine::Voice>> voices_;
};

}  // namespace corvane
