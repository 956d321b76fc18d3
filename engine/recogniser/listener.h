// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "engine/audio/audio_source.h"
#include "engine/recogniser/decoder.h"
#include "engine/recogniser/dictation.h"
#include "engine/recogniser/endpointer.h"
#include "engine/recogniser/reco_result.h"
#include "engine/recogniser/reporter.h"
#include "engine/recogniser/sound_feedback.h"
#include "engine/recogniser/vocabulary.h"

namespace corvane::engine {

/// The thread that listens: sound to endpointer to decoder to confidence to events. It never calls
/// a target itself, it only posts.
class Listener {
public:
    Listener(std::unique_ptr<Decoder> decoder, AudioSource& source, Dictation& dictation,
             const Reporter& reporter, SoundFeedback feedback);
    /// Stops: nothing is posted any more.
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Begins to read the source; once is enough.
    void Start();

    /// What can be said from now on. An utterance that is under way, or not judged to the end, is
    /// judged by it from its beginning. One of which more is to follow waits for that, and an
    /// utterance that ends meanwhile waits too.
    void SetVocabulary(std::shared_ptr<const Vocabulary> vocabulary);

    /// What anybody wants to know: a sum of SpeechRecoEvents.
    void SetInterests(std::int32_t interests) { interests_ = interests; }

    /// What is said from now on until Resume, if only in part, is no utterance: nobody is told of
    /// it, then or later. The room is still heard. Said is what the source has captured, though it
    /// may be read later.
    void Pause() { ++pauses_; }
    void Resume();

    void WaitForEndOfStream();

private:
    using Clock = Vocabulary::Clock;

    void Run();
    [[nodiscard]] bool ReadFrame(std::span<std::int16_t> frame);
    void TakeVocabulary();
    void AwaitVocabulary();
    void TakePause();
    [[nodiscard]] bool IsHeard() const { return endpointer_.Begin() >= heard_from_; }
    void ForgetUtterance();
    [[nodiscard]] bool VocabularyIsDue();
    void UseVocabulary(std::shared_ptr<const Vocabulary> vocabulary);
    void Hear(std::span<const std::int16_t> frame);
    void HearSpeech(std::span<const std::int16_t> frame);
    void BeginUtterance();
    void BeginText(bool suppose);
    void FollowInterests();
    void Suppose();
    void Foresee();
    [[nodiscard]] bool Foreseen() const;
    [[nodiscard]] bool IsSurelyAll(const Path& path) const;
    void Follow(Endpointer::Event event);
    void EndUtterance();
    void Tell(std::optional<RecognisedPhrase> phrase, const Path& path, Clock::time_point since,
              Clock::duration known);
    void TellHowItWasSaid(const Path& path, SpeechEngineConfidence confidence);
    /// Throws away what no utterance can need any more.
    void Forget();
    /// What was heard between two frames of the stream.
    [[nodiscard]] std::span<const std::int16_t> Sound(std::int64_t begin, std::int64_t end) const;
    [[nodiscard]] std::optional<RecognisedPhrase> PhraseOf(const Path& path,
                                                           Clock::time_point since) const;
    [[nodiscard]] const Vocabulary::Rule& RuleOf(const Path& path) const;

    std::unique_ptr<Decoder> decoder_;
    AudioSource& source_;
    Dictation& dictation_;
    const Reporter& reporter_;

    std::mutex mutex_;
    std::condition_variable vocabulary_came_;
    std::shared_ptr<const Vocabulary> next_vocabulary_;  ///< guarded by mutex_
    std::atomic<std::int32_t> interests_ = 0;
    std::atomic<bool> stopping_ = false;
    std::atomic<std::uint32_t> pauses_ = 0;  ///< begun and ended: odd while there is one
    std::atomic<std::int64_t> read_ = 0;     ///< samples of the stream
    std::atomic<std::int64_t> resumed_ = 0;  ///< samples that were captured by then

    // The thread's own.
    std::shared_ptr<const Vocabulary> vocabulary_ = std::make_shared<Vocabulary>();
    Endpointer endpointer_;
    SoundFeedback feedback_;
    std::vector<std::int16_t> sound_;  ///< of the utterance, or what may yet belong to one
    std::int64_t sound_begin_ = 0;     ///< frame of the stream at which it begins
    std::uint32_t known_pauses_ = 0;
    std::int64_t heard_from_ = 0;  ///< what begins before this frame is no utterance
    bool supposing_ = false;
    std::vector<std::string> supposed_;  ///< words of the last hypothesis

    /// What the utterance under way is, should it prove to be over.
    struct Foresight {
        Path path;
        std::int64_t last_loud = 0;
        Clock::duration latency{};  ///< from the end of speech until this was known
    };
    std::optional<Foresight> foreseen_;

    std::thread thread_;
};

}  // namespace corvane::engine
