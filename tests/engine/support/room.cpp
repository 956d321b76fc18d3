// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/room.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <utility>

namespace corvane::engine::testing {

void Messages::Post(std::function<void()> message) {
    {
        const std::lock_guard lock(mutex_);
        messages_.push_back(std::move(message));
    }
    posted_.notify_all();
}

bool Messages::WaitForOne() {
    std::unique_lock lock(mutex_);
    return posted_.wait_for(lock, std::chrono::seconds(20), [this] { return !messages_.empty(); });
}

void Messages::Run() {
    std::vector<std::function<void()>> ready;
    {
        const std::lock_guard lock(mutex_);
        ready.swap(messages_);
    }
    for (const auto& message : ready) message();
}

struct Microphone::Line {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::int16_t> sound;
    bool hung_up = false;
    bool interrupted = false;
    bool awaited = false;  ///< somebody waits for more sound
};

class Microphone::LineSource final : public AudioSource {
public:
    explicit LineSource(std::shared_ptr<Line> line) : line_(std::move(line)) {}

    std::size_t Read(std::span<std::int16_t> block) override {
        std::unique_lock lock(line_->mutex);
        line_->awaited = line_->sound.empty();
        if (line_->awaited) line_->changed.notify_all();
        line_->changed.wait(
            lock, [this] { return line_->interrupted || line_->hung_up || !line_->sound.empty(); });
        if (line_->interrupted) return 0;
        const std::size_t count = std::min(block.size(), line_->sound.size());
        const auto end = line_->sound.begin() + static_cast<std::ptrdiff_t>(count);
        std::copy(line_->sound.begin(), end, block.begin());
        line_->sound.erase(line_->sound.begin(), end);
        return count;
    }

    [[nodiscard]] std::size_t Waiting() override {
        const std::lock_guard lock(line_->mutex);
        return line_->sound.size();
    }

    void Interrupt() override {
        {
            const std::lock_guard lock(line_->mutex);
            line_->interrupted = true;
        }
        line_->changed.notify_all();
    }

private:
    std::shared_ptr<Line> line_;
};

std::shared_ptr<Microphone::Line> Microphone::MakeLine() {
    return std::make_shared<Line>();
}

std::unique_ptr<AudioSource> Microphone::Source() {
    return std::make_unique<LineSource>(line_);
}

void Microphone::Hear(const Sound& sound) {
    {
        const std::lock_guard lock(line_->mutex);
        line_->sound.insert(line_->sound.end(), sound.begin(), sound.end());
    }
    line_->changed.notify_all();
}

void Microphone::WaitUntilRead() {
    std::unique_lock lock(line_->mutex);
    line_->changed.wait_for(lock, std::chrono::milliseconds(200),
                            [this] { return line_->awaited && line_->sound.empty(); });
}

void Microphone::HangUp() {
    {
        const std::lock_guard lock(line_->mutex);
        line_->hung_up = true;
    }
    line_->changed.notify_all();
}

Listening::Listening(SpeechEngine& engine, const std::string& grammar_file, std::int32_t interests)
    : context(engine.CreateSpSharedRecoContext()), grammar(context->CreateGrammar(0)) {
    context->Advise(
        {.Recognition =
             [this](std::int32_t, const Variant& position, std::int32_t,
                    std::shared_ptr<ISpeechRecoResult> result) {
                 recognised.push_back(std::move(result));
                 positions.push_back(std::get<std::int64_t>(position));
             },
         .Hypothesis =
             [this](std::int32_t, const Variant&, std::shared_ptr<ISpeechRecoResult> result) {
                 supposed.push_back(std::move(result));
             },
         .AudioLevel = [this](std::int32_t, const Variant&,
                              std::int32_t level) { levels.push_back(level); },
         .Interference = [this](
                             std::int32_t, const Variant&,
                             std::int32_t interference) { interferences.push_back(interference); },
         .Adaptation = {}});
    grammar->CmdLoadFromFile(grammar_file, SLODynamic);
    grammar->CmdSetRuleIdState(0, SGDSActive);
    context->SetEventInterests(interests);
}

void Room::HearToTheEnd(const Sound& sound) {
    microphone.Hear(sound);
    microphone.HangUp();
    engine->WaitForEndOfStream();
    messages.Run();
}

std::string Told(const std::shared_ptr<ISpeechRecoResult>& result) {
    const auto phrase = result->PhraseInfo();
    return phrase->Rule()->Name() + ": " + phrase->GetText(0, -1, true);
}

std::string GrammarOf(const std::string& rules) {
    return "<GRAMMAR LANGID=\"409\">\r\n" + rules + "</GRAMMAR>\r\n";
}

std::string RuleOf(const std::string& name, const std::string& phrase) {
    return R"(<RULE NAME=")" + name + "\" TOPLEVEL=\"ACTIVE\">\r\n   <P>" + phrase +
           "</P>\r\n</RULE>\r\n";
}

}  // namespace corvane::engine::testing
