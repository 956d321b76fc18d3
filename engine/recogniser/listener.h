// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
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
#include "engine/recogniser/endpointer.h"
#include "engine/recogniser/reco_result.h"
#include "engine/recogniser/sound_feedback.h"
#include "engine/recogniser/vocabulary.h"

namespace corvane::engine {

/// The thread that listens: sound to endpointer to decoder to confidence to events. It never calls
/// a target itself, it only posts.
class Listener {
public:
    using Post = SoundFeedback::Post;

    Listener(std::unique_ptr<Decoder> decoder, AudioSource& source, Post post,
             std::weak_ptr<Audience> audience);
    /// Stops: nothing is posted any more.
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Begins to read the source; once is enough.
    void Start();

    /// What can be said from now on. An utterance under way is judged by it from its beginning.
    void SetVocabulary(std::shared_ptr<const Vocabulary> vocabulary);

    /// What anybody wants to know: a sum of SpeechRecoEvents.
    void SetInterests(std::int32_t interests) { interests_ = interests; }

    void WaitForEndOfStream();

private:
    using Clock = std::chrono::steady_clock;

    void Run();
    [[nodiscard]] bool ReadFrame(std::span<std::int16_t> frame);
    void TakeVocabulary();
    void Hear(std::span<const std::int16_t> frame);
    void BeginHypotheses();
    void Suppose();
    void EndUtterance();
    void TellHowItWasSaid(const Path& path, SpeechEngineConfidence confidence);
    /// Throws away what no utterance can need any more.
    void Forget();
    /// What was heard between two frames of the stream.
    [[nodiscard]] std::span<const std::int16_t> Sound(std::int64_t begin, std::int64_t end) const;
    [[nodiscard]] std::optional<RecognisedPhrase> PhraseOf(const Path& path,
                                                           Clock::time_point since) const;
    void PostResult(RecognisedPhrase phrase, const Path& path, bool final);

    std::unique_ptr<Decoder> decoder_;
    AudioSource& source_;
    Post post_;

    std::mutex mutex_;
    std::shared_ptr<const Vocabulary> next_vocabulary_;  ///< guarded by mutex_
    std::atomic<std::int32_t> interests_ = 0;
    std::atomic<bool> stopping_ = false;

    // The thread's own.
    std::shared_ptr<const Vocabulary> vocabulary_;
    Endpointer endpointer_;
    SoundFeedback feedback_;
    std::vector<std::int16_t> sound_;  ///< of the utterance, or what may yet belong to one
    std::int64_t sound_begin_ = 0;     ///< frame of the stream at which it begins
    bool supposing_ = false;
    std::vector<std::string> supposed_;  ///< words of the last hypothesis

    std::thread thread_;
};

}  // namespace corvane::engine
