// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/voice_session.h"

#include <algorithm>
#include <utility>

#include "runtime/failure.h"

namespace corvane::linux_desktop {
namespace {

using engine::ReadingVerdict;

/// What isn't read well by then never will be; whoever can't press a button must get on.
constexpr int kMostAttempts = 3;

/// Tenths of a second.
constexpr int kLongWait = 100;

/// By VoiceSession::Wish.
const std::vector<std::string> kWishes{"skip this sentence",     "cancel the training",
                                       "close the window",       "train once more",
                                       "undo the last training", "try to save again"};

VoiceSession::Advice AdviceOnGood(bool loud, bool quiet) {
    if (loud) return VoiceSession::Advice::good_but_loud;
    return quiet ? VoiceSession::Advice::good_but_quiet : VoiceSession::Advice::good;
}

VoiceSession::Advice AdviceOnOther(bool loud, bool quiet) {
    if (loud) return VoiceSession::Advice::too_loud;
    return quiet ? VoiceSession::Advice::too_quiet : VoiceSession::Advice::other;
}

}  // namespace

VoiceSession::VoiceSession(engine::UserProfile& profile, std::vector<std::string> sentences,
                           std::unique_ptr<engine::AudioSource> microphone, Events events)
    : profile_(profile),
      sentences_(std::move(sentences)),
      events_(std::move(events)),
      worker_([this](const std::string& what) {
          checking_ = false;
          state_.failure = what;
          Finish(Outcome::failed);
      }),
      microphone_(std::move(microphone), MicrophoneEvents()) {
    state_.count = sentences_.size();
    state_.sentence = sentences_.front();
    state_.can_undo = profile_.Voice() != nullptr;
    Load();
}

ReadingMicrophone::Events VoiceSession::MicrophoneEvents() {
    return {.Level = [this](int level) { HearLevel(level); },
            .Signal = [this](bool there) { HearSignal(there); },
            .Began =
                [this] {
                    if (Awaits()) Advise(Advice::hearing);
                },
            .Denied =
                [this] {
                    if (Awaits()) Advise(Advice::read);
                },
            .Ended = [this](const Reading& reading) { Heard(reading); }};
}

void VoiceSession::Load() {
    worker_.Do([this, make = profile_.TrainingMaker(), make_choice = profile_.ChoiceMaker(kWishes),
                first = sentences_.front()]() {
        choice_ = make_choice();
        training_ = make();
        const bool readable = training_->Read(first, {}) != ReadingVerdict::no_words;
        return readable ? Worker::Then() : [this] { LeaveFirstOut(); };
    });
}

void VoiceSession::LeaveFirstOut() {
    if (index_ != 0 || state_.stage == Stage::over) return;
    ++turn_;
    sentences_.erase(sentences_.begin());
    state_.count = sentences_.size();
    if (sentences_.empty()) return Finish(Outcome::too_few);
    state_.sentence = sentences_.front();
    Await(Advice::unreadable);
}

bool VoiceSession::MayBeRead() const {
    return state_.stage == Stage::introduction || state_.stage == Stage::reading;
}

bool VoiceSession::Awaits() const {
    return MayBeRead() && !resting_ && !checking_;
}

void VoiceSession::Start() {
    if (state_.stage != Stage::introduction) return;
    state_.stage = Stage::reading;
    Again();
}

void VoiceSession::Again() {
    if (!MayBeRead()) return;
    ++turn_;
    Await(Advice::read);
}

void VoiceSession::Skip() {
    if (!MayBeRead()) return;
    ++turn_;
    Advance(Advice::skipped);
}

void VoiceSession::UndoTraining() {
    state_.failure.clear();
    on_error([&] { profile_.UndoVoice(); },
             [&](const RuntimeError& error) { state_.failure = error.what(); });
    state_.can_undo = profile_.Voice() != nullptr;
    if (state_.stage == Stage::over && state_.failure.empty()) return Finish(Outcome::undone);
    Advise(state_.failure.empty() ? Advice::undone : state_.advice);
}

void VoiceSession::Save() {
    if (learnt_) Keep();
}

void VoiceSession::Rest() {
    resting_ = true;
    ++turn_;
}

void VoiceSession::GoOn() {
    if (std::exchange(resting_, false)) Again();
}

void VoiceSession::Heard(const Reading& reading) {
    if (checking_)
        waiting_ = reading;
    else if (Awaits() || (state_.stage == Stage::over && !resting_))
        Check(reading);
}

void VoiceSession::Check(const Reading& reading) {
    checking_ = true;
    Advise(Advice::checking);
    const std::string sentence = MayBeRead() ? sentences_[index_] : std::string();
    worker_.Do([this, turn = turn_, sentence, reading]() -> Worker::Then {
        ReadingVerdict verdict = ReadingVerdict::other;
        // There is no training when the model can't be read, of which somebody is told by then.
        if (training_ && !sentence.empty()) verdict = training_->Read(sentence, reading.sound);
        std::optional<std::size_t> choice;
        if (verdict != ReadingVerdict::good && choice_) choice = choice_->Heard(reading.sound);
        return [this, turn, verdict, choice, reading] {
            checking_ = false;
            if (turn != turn_)
                Forget(verdict);
            else if (IsWish(choice))
                Obey(static_cast<Wish>(*choice));
            else if (MayBeRead())
                Judge(verdict, reading);
            // What was said meanwhile was said to what is shown now.
            if (const auto next = std::exchange(waiting_, {})) Heard(*next);
        };
    });
}

void VoiceSession::Forget(ReadingVerdict verdict) {
    if (verdict != ReadingVerdict::good) return;
    worker_.Do([this]() -> Worker::Then {
        training_->Forget();
        return {};
    });
}

bool VoiceSession::IsWish(std::optional<std::size_t> choice) const {
    if (!choice) return false;
    switch (static_cast<Wish>(*choice)) {
        case Wish::skip:
            return MayBeRead();
        case Wish::anew:
            return state_.stage == Stage::over;
        case Wish::undo:
            return state_.can_undo;
        case Wish::save:
            return state_.can_save;
        case Wish::cancel:
        case Wish::close:
            return true;
    }
    return false;
}

void VoiceSession::Obey(Wish wish) {
    switch (wish) {
        case Wish::skip:
            return Skip();
        case Wish::anew:
            return events_.Anew();
        case Wish::undo:
            return UndoTraining();
        case Wish::save:
            return Save();
        case Wish::cancel:
        case Wish::close:
            return events_.Leave();
    }
}

void VoiceSession::Judge(ReadingVerdict verdict, const Reading& reading) {
    if (verdict == ReadingVerdict::good) {
        ++read_;
        return Advance(AdviceOnGood(reading.too_loud, reading.too_quiet));
    }
    // Before it has begun, people may still be talking about it.
    if (state_.stage == Stage::reading && ++attempts_ == kMostAttempts)
        return Advance(Advice::given_up);
    Advise(AdviceOnOther(reading.too_loud, reading.too_quiet));
}

void VoiceSession::Advance(Advice advice) {
    state_.stage = Stage::reading;
    attempts_ = 0;
    ++index_;
    if (index_ == sentences_.size()) return Train();
    state_.number = index_ + 1;
    state_.sentence = sentences_[index_];
    Await(advice);
}

void VoiceSession::Await(Advice advice) {
    waiting_.reset();
    waited_ = 0;
    state_.failure.clear();
    microphone_.Await();
    Advise(signal_ ? advice : Advice::no_signal);
}

void VoiceSession::Advise(Advice advice) {
    state_.advice = advice;
    waited_ = 0;
    events_.Changed();
}

void VoiceSession::Train() {
    waiting_.reset();
    state_.stage = Stage::training;
    if (read_ < engine::VoiceTraining::kFewestSentences) return Finish(Outcome::too_few);
    worker_.Do([this]() -> Worker::Then {
        const engine::TrainingResult result = training_->Train([this](double done) {
            worker_.Tell([this, done] {
                state_.trained = done;
                events_.Changed();
            });
            return !worker_.Stopping();
        });
        return [this, result] { Trained(result); };
    });
    events_.Changed();
}

void VoiceSession::Trained(const engine::TrainingResult& result) {
    if (!result.transform) return Finish(Outcome::no_help);
    state_.improvement = std::clamp(1.0 - result.after / result.before, 0.0, 1.0);
    learnt_ = result.transform;
    Keep();
}

// What can't be kept now, since there is no room, may be soon: nobody is to read it all again.
void VoiceSession::Keep() {
    Outcome outcome = Outcome::failed;
    on_error(
        [&] {
            profile_.KeepVoice(*learnt_);
            learnt_.reset();
            outcome = Outcome::learnt;
        },
        [&](const RuntimeError& error) { state_.failure = error.what(); });
    Finish(outcome);
}

void VoiceSession::Finish(Outcome outcome) {
    ++turn_;
    state_.stage = Stage::over;
    state_.outcome = outcome;
    if (outcome != Outcome::failed) state_.failure.clear();
    state_.can_save = learnt_.has_value();
    state_.can_undo = profile_.Voice() != nullptr;
    events_.Changed();
}

void VoiceSession::HearLevel(int level) {
    events_.Level(level);
    const bool silent = Awaits() && state_.advice != Advice::hearing;
    if (silent && signal_ && ++waited_ == kLongWait) Advise(Advice::unheard);
}

void VoiceSession::HearSignal(bool there) {
    signal_ = there;
    if (Awaits()) Advise(there ? Advice::read : Advice::no_signal);
}

}  // namespace corvane::linux_desktop
