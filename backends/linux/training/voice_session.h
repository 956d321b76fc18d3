// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/adaptation/voice_training.h"
#include "engine/audio/audio_source.h"
#include "engine/user_profile.h"
#include "linux/training/reading_microphone.h"
#include "linux/training/worker.h"

namespace corvane::linux_desktop {

/// One training to a voice, from the first sentence to what came of it, without anything to see.
/// It goes on by itself: a sentence that was read well is followed by the next, and the last by the
/// training. What its buttons do can be said as well. Needs a QCoreApplication, among whose
/// messages it lives.
class VoiceSession {
public:
    /// introduction: the first sentence may be read already, but need not be.
    enum class Stage { introduction, reading, training, over };

    /// What whoever reads should know now.
    enum class Advice {
        read,  ///< the sentence is awaited
        hearing,
        checking,
        good,  ///< the one before was read well
        good_but_loud,
        good_but_quiet,
        other,  ///< something else was read
        too_loud,
        too_quiet,
        unheard,     ///< nothing for a while
        no_signal,   ///< there is no microphone, or it is switched off
        skipped,     ///< the one before, since the reader wants so
        given_up,    ///< the one before, since it was not read well again and again
        unreadable,  ///< the one that was asked for has no words that can be said
        undone,      ///< the last training
    };

    enum class Outcome {
        none,
        learnt,
        no_help,  ///< on sentences held back; nothing was kept
        too_few,  ///< sentences were read
        undone,   ///< the last training
        failed,   ///< see State::failure
    };

    struct State {
        Stage stage = Stage::introduction;
        Advice advice = Advice::read;
        std::string sentence;
        std::size_t number = 1;  ///< of the sentence, from 1
        std::size_t count = 0;
        double trained = 0.0;  ///< share of the training that is done
        Outcome outcome = Outcome::none;
        double improvement = 0.0;  ///< share of what sentences held back differed by, 0 to 1
        std::string failure;  ///< of what was to be done last, in words; empty if there is none
        bool can_undo = false;
        bool can_save = false;  ///< what was learnt could not be kept and is still there
    };

    struct Events {
        std::function<void()> Changed;         ///< the state
        std::function<void(int level)> Level;  ///< of the microphone, 0 to 100
        // What was wished by voice. The session must still be there when these return.
        std::function<void()> Leave;
        std::function<void()> Anew;
    };

    /// sentences: at least one; the first one is left out if nobody can read it. profile: outlives
    /// this.
    VoiceSession(engine::UserProfile& profile, std::vector<std::string> sentences,
                 std::unique_ptr<engine::AudioSource> microphone, Events events);
    VoiceSession(const VoiceSession&) = delete;
    VoiceSession& operator=(const VoiceSession&) = delete;

    [[nodiscard]] const State& Now() const { return state_; }

    /// Ends the introduction.
    void Start();
    /// The sentence is to be read from its beginning, whatever has been heard of it.
    void Again();
    void Skip();
    /// As engine::UserProfile::UndoVoice.
    void UndoTraining();
    /// Tries again to keep what was learnt.
    void Save();
    /// Nothing is heard until it goes on.
    void Rest();
    void GoOn();

private:
    using Reading = engine::ReadingCatcher::Reading;

    /// What may be said instead of a sentence, see kWishes.
    enum class Wish { skip, cancel, close, anew, undo, save };

    void Load();
    void LeaveFirstOut();
    void Heard(const Reading& reading);
    void Check(const Reading& reading);
    void Forget(engine::ReadingVerdict verdict);
    void Obey(Wish wish);
    void Judge(engine::ReadingVerdict verdict, const Reading& reading);
    void Advance(Advice advice);
    void Await(Advice advice);
    void Advise(Advice advice);
    void Train();
    void Trained(const engine::TrainingResult& result);
    void Keep();
    void Finish(Outcome outcome);
    void HearLevel(int level);
    void HearSignal(bool there);
    /// Whether something was wished that can be done now.
    [[nodiscard]] bool IsWish(std::optional<std::size_t> choice) const;
    [[nodiscard]] bool MayBeRead() const;
    [[nodiscard]] bool Awaits() const;
    [[nodiscard]] ReadingMicrophone::Events MicrophoneEvents();

    engine::UserProfile& profile_;
    std::vector<std::string> sentences_;
    Events events_;
    State state_;
    std::size_t index_ = 0;  ///< of the sentence
    std::size_t read_ = 0;   ///< sentences that were read well
    int attempts_ = 0;       ///< of the sentence, that were none
    int waited_ = 0;         ///< for the sentence, tenths of a second
    bool resting_ = false;
    bool signal_ = true;
    bool checking_ = false;
    std::uint32_t turn_ = 0;          ///< another one when what has been heard counts no more
    std::optional<Reading> waiting_;  ///< heard while another was being checked
    std::optional<engine::SpeakerTransform> learnt_;  ///< until it is kept

    // The worker's own.
    std::unique_ptr<engine::VoiceTraining> training_;
    std::unique_ptr<engine::SpokenChoice> choice_;

    Worker worker_;
    ReadingMicrophone microphone_;
};

}  // namespace corvane::linux_desktop
