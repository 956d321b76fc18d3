// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "engine/recogniser/dictation_decoder.h"
#include "engine/recogniser/reporter.h"
#include "engine/recogniser/text_writer.h"

namespace corvane::engine {

/// Makes text of utterances, on a thread of its own beside the one that listens, so that neither
/// that nor the loop waits for it. Utterances queue up and are told in their order; what is said
/// while the model loads is written once it has.
class Dictation {
public:
    using Clock = std::chrono::steady_clock;

    /// What else an utterance may be, all of it: a phrase that edits the text or names a mark.
    struct OwnPhrase {
        RecognisedPhrase phrase;
        double acoustic = 0.0;  ///< how far its path's sounds lie below the best there are
    };

    /// How an utterance ended; positions count frames of the stream from 0.
    struct Ending {
        std::int64_t last_loud = 0;
        std::int64_t end = 0;     ///< where it ends; sound behind that is not of it
        std::int64_t known = 0;   ///< where it was clear that it is over
        Clock::time_point since;  ///< and when
        std::optional<OwnPhrase> own_phrase;
    };

    Dictation(DictationModel model, const Reporter& reporter);
    /// Ends at once but for the utterance that is being decoded: nothing is told any more.
    ~Dictation();
    Dictation(const Dictation&) = delete;
    Dictation& operator=(const Dictation&) = delete;

    // For the loop's thread.

    /// Raises kAutomationError when the model can't be read; takes some hundredths of a second.
    void CheckModel() const { CheckDictationModel(model_); }
    /// Whether text is wanted: loads what that takes, or gives it back and forgets what was said.
    void Want(bool wanted);
    /// From now on text is made by this model; what is to be written already is written by either.
    /// `taken` is called on any thread as soon as it is so.
    void Use(DictationModel model, std::function<void()> taken);
    /// Waits until all that was to be written is.
    void WaitUntilWritten();

    // For the listening thread.

    /// An utterance has begun; `sound` is what there is of it, from the frame `begin` of the
    /// stream. `target` is told suppositions of it if it is to `suppose`. It is not taken, nor is
    /// what else is told of it, while minutes of sound still wait to be written.
    void Begin(std::weak_ptr<ResultTarget> target, std::int64_t begin,
               std::span<const std::int16_t> sound, bool suppose);
    void Hear(std::span<const std::int16_t> sound);
    /// The utterance is over and is text, or dictation's own phrase.
    void Write(Ending ending);
    /// The utterance is no text.
    void Drop();
    [[nodiscard]] bool Hearing() const { return hearing_ != nullptr; }

private:
    struct Utterance {
        std::weak_ptr<ResultTarget> target;
        std::int64_t begin = 0;
        bool suppose = false;
        // Guarded by mutex_ until it is over.
        std::vector<std::int16_t> sound;
        bool dropped = false;
        std::optional<Ending> ending;
    };
    /// Why the thread wakes up.
    enum class Task { none, load, unload, discard, write, follow };

    [[nodiscard]] bool IsFull();
    void Run();
    void TakeFirst();
    [[nodiscard]] Task NextTask() const;
    void Load(std::unique_lock<std::mutex>& lock);
    void TellTaken(std::unique_lock<std::mutex>& lock);
    void Unload(std::unique_lock<std::mutex>& lock);
    void Follow(std::unique_lock<std::mutex>& lock);
    void WriteFirst(std::unique_lock<std::mutex>& lock);
    void Suppose(const Utterance& utterance);
    [[nodiscard]] std::vector<RecognisedPhrase> Read(const Utterance& utterance);

    DictationModel model_;  ///< changed by the loop's thread alone; guarded by mutex_
    const Reporter& reporter_;

    std::mutex mutex_;
    std::condition_variable changed_;
    // Guarded by mutex_.
    std::deque<std::shared_ptr<Utterance>> queue_;
    bool wanted_ = false;
    bool anew_ = false;                         ///< the next text is the first
    std::vector<std::function<void()>> taken_;  ///< who is to be told once the model is loaded
    bool stale_ = false;                        ///< what is loaded is of another model
    bool failed_ = false;                       ///< the model could not be loaded
    bool stopping_ = false;

    std::shared_ptr<Utterance> hearing_;  ///< the listening thread's own

    // The own thread's.
    std::unique_ptr<DictationDecoder> decoder_;
    TextWriter writer_;
    std::shared_ptr<Utterance> followed_utterance_;  ///< the first of the queue
    std::size_t followed_ = 0;                       ///< samples of it that were decoded live
    std::size_t supposed_at_ = 0;  ///< how many there were at the last supposition
    std::vector<std::string> supposed_;

    std::thread thread_;
};

}  // namespace corvane::engine
