// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "engine/speech_engine.h"
#include "support/speech.h"

namespace corvane::engine::testing {

/// Messages for the test's own thread, run when it says so.
class Messages {
public:
    void Post(std::function<void()> message);
    /// Waits for a message, with a bound; false if none came.
    [[nodiscard]] bool WaitForOne();
    void Run();

private:
    std::mutex mutex_;
    std::condition_variable posted_;
    std::vector<std::function<void()>> messages_;
};

/// A microphone into which a test speaks.
class Microphone {
public:
    void Hear(const Sound& sound);
    void HangUp();
    /// Waits until the engine has read all of it and comes back for more, with a bound.
    void WaitUntilRead();
    [[nodiscard]] std::unique_ptr<AudioSource> Source();

private:
    struct Line;
    std::shared_ptr<Line> line_ = MakeLine();
    static std::shared_ptr<Line> MakeLine();
    class LineSource;
};

/// A context with one grammar and what it was told.
class Listening {
public:
    static constexpr std::int32_t kAllInterests = SRERecognition | SREHypothesis;

    Listening(SpeechEngine& engine, const std::string& grammar_file,
              std::int32_t interests = kAllInterests);

    std::shared_ptr<ISpeechRecoContext> context;
    std::shared_ptr<ISpeechRecoGrammar> grammar;
    std::vector<std::shared_ptr<ISpeechRecoResult>> recognised;
    std::vector<std::shared_ptr<ISpeechRecoResult>> supposed;
    std::vector<std::int64_t> positions;  ///< of what was recognised
    std::vector<std::int32_t> levels;
    std::vector<std::int32_t> interferences;

    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
};

/// An engine, a microphone and a message loop.
class Room {
public:
    Messages messages;
    Microphone microphone;
    std::unique_ptr<SpeechEngine> engine = std::make_unique<SpeechEngine>(
        SpeechEngineConfig(),
        [this](std::function<void()> message) { messages.Post(std::move(message)); },
        microphone.Source());

    /// Lets the engine hear all of it and runs what it had to say.
    void HearToTheEnd(const Sound& sound);
};

/// "rule: text" of a result.
[[nodiscard]] std::string Told(const std::shared_ptr<ISpeechRecoResult>& result);

/// Opening and closing of a grammar around its rules.
[[nodiscard]] std::string GrammarOf(const std::string& rules);
/// A rule of one phrase.
[[nodiscard]] std::string RuleOf(const std::string& name, const std::string& phrase);

}  // namespace corvane::engine::testing
