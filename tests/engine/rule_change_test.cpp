// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "support/memory.h"
#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::GrammarOf;
using testing::Listening;
using testing::Room;
using testing::RuleOf;
using testing::Say;
using testing::Sound;
using testing::TemporaryFile;
using testing::Told;

constexpr const char* kCommands = CORVANE_PROJECT_FOLDER "/data/keywords.xml";

/// The months and what closes their window.
std::string MonthsGrammar() {
    std::string rules;
    for (const char* name : {"January", "February", "March", "April", "May", "June", "July",
                             "August", "September", "October", "November", "December", "close me"})
        rules += RuleOf(name, name);
    return GrammarOf(rules);
}

class RuleChanges : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    TemporaryFile time_file{GrammarOf(RuleOf("the time", "what time is it"))};
    TemporaryFile months_file{MonthsGrammar()};
    Room room;
};

/// A context in place of another, step by step, as the program does it.
class Replacement {
public:
    Replacement(Room& room, std::string grammar_file)
        : room_(room), grammar_file_(std::move(grammar_file)) {}

    static constexpr int kSteps = 5;
    void Step(int step) {
        switch (step) {
            case 0:
                next_ = room_.engine->CreateSpSharedRecoContext();
                if (context_) context_->Advise({});
                context_ = next_;
                context_->Advise({.Recognition =
                                      [this](std::int32_t, const Variant&, std::int32_t,
                                             std::shared_ptr<ISpeechRecoResult> result) {
                                          recognised.push_back(std::move(result));
                                      },
                                  .Hypothesis = {},
                                  .AudioLevel = {},
                                  .Interference = {},
                                  .Adaptation = {}});
                next_.reset();
                break;
            case 1:
                grammar_ = context_->CreateGrammar(0);
                break;
            case 2:
                grammar_->CmdLoadFromFile(grammar_file_, SLODynamic);
                break;
            case 3:
                grammar_->CmdSetRuleIdState(0, SGDSActive);
                break;
            default:
                context_->SetEventInterests(66608);
        }
    }
    void Whole() {
        for (int step = 0; step < kSteps; ++step) Step(step);
    }

    std::vector<std::shared_ptr<ISpeechRecoResult>> recognised;

private:
    Room& room_;
    std::string grammar_file_;
    std::shared_ptr<ISpeechRecoContext> context_;
    std::shared_ptr<ISpeechRecoContext> next_;
    std::shared_ptr<ISpeechRecoGrammar> grammar_;
};

TEST_F(RuleChanges, WhatIsSaidDuringAReplacementIsHeardOnceAtWhateverMomentItFalls) {
    constexpr std::size_t kPiece = 1600;  // a tenth of a second
    const Sound speech = Say("what time is it", "rms");
    const std::size_t pieces = speech.size() / kPiece;
    // Speech ends half a second before the sound, its utterance as soon as the 0.2 s of stillness
    // behind it are there: the first replacement is over by then, of the others each is at another
    // step.
    for (const std::size_t late : {12U, 8U, 7U, 6U, 5U}) {
        Room own;
        const Listening months(*own.engine, months_file.Path());
        Replacement context(own, time_file.Path());
        context.Whole();
        int step = 0;
        for (std::size_t piece = 0; piece <= pieces; ++piece) {
            if (piece + late >= pieces && step < Replacement::kSteps) context.Step(step++);
            const auto begin = speech.begin() +
                               static_cast<std::ptrdiff_t>(std::min(piece * kPiece, speech.size()));
            const auto end = speech.begin() + static_cast<std::ptrdiff_t>(
                                                  std::min((piece + 1) * kPiece, speech.size()));
            own.microphone.Hear({begin, end});
            own.microphone.WaitUntilRead();
        }
        while (step < Replacement::kSteps) context.Step(step++);
        own.HearToTheEnd({});
        ASSERT_EQ(context.recognised.size(), 1U) << late << " tenths of a second before the end";
        EXPECT_EQ(Told(context.recognised[0]), "the time: what time is it");
        EXPECT_TRUE(months.recognised.empty());
    }
}

TEST_F(RuleChanges, UtteranceUnderWayIsJudgedByTheRulesThatFollow) {
    const TemporaryFile other(GrammarOf(RuleOf("other", "disconnect from the internet")));
    const Sound speech = Say("what time is it", "rms");
    const auto half = static_cast<std::ptrdiff_t>(speech.size() / 2);
    Replacement before(room, other.Path());
    before.Whole();
    room.microphone.Hear({speech.begin(), speech.begin() + half});
    room.microphone.WaitUntilRead();
    Replacement after(room, time_file.Path());
    after.Whole();
    room.HearToTheEnd({speech.begin() + half, speech.end()});
    ASSERT_EQ(after.recognised.size(), 1U);
}

TEST_F(RuleChanges, ContextThatNeverGetsRulesHoldsNobodyUp) {
    const auto deaf = room.engine->CreateSpSharedRecoContext();
    EXPECT_THROW(deaf->CreateGrammar(0)->CmdLoadFromFile("/nowhere.xml", SLODynamic), RuntimeError);
    deaf->SetEventInterests(66608);
    const Listening clock(*room.engine, time_file.Path());
    room.HearToTheEnd(Say("what time is it"));
    EXPECT_EQ(clock.recognised.size(), 1U);
}

TEST_F(RuleChanges, NoSuppositionComesOfRulesThatWereSwitchedOff) {
    const Listening clock(*room.engine, time_file.Path());
    room.messages.Run();
    clock.grammar->CmdSetRuleIdState(0, SGDSInactive);
    room.HearToTheEnd(Say("what time is it"));
    EXPECT_TRUE(clock.supposed.empty());
    EXPECT_TRUE(clock.recognised.empty());
}

TEST_F(RuleChanges, SuppositionsStopAndGoOnWithTheInterestInThem) {
    const Listening clock(*room.engine, time_file.Path(), SRERecognition);
    const Sound speech = Say("what time is it", "rms");
    const auto third = static_cast<std::ptrdiff_t>(speech.size() / 3);
    room.microphone.Hear({speech.begin(), speech.begin() + 2 * third});
    room.microphone.WaitUntilRead();
    room.messages.Run();
    EXPECT_TRUE(clock.supposed.empty());
    clock.context->SetEventInterests(SRERecognition | SREHypothesis);
    room.HearToTheEnd({speech.begin() + 2 * third, speech.end()});
    EXPECT_FALSE(clock.supposed.empty());
    EXPECT_EQ(clock.recognised.size(), 1U);
}

TEST_F(RuleChanges, AtMostFourSuppositionsASecondAndNoneTwice) {
    const Listening clock(*room.engine, kCommands);
    const Sound speech = testing::Joined(Say("could you please tell me what time is it now", "slt"),
                                         Say("how much ram does my computer have", "rms"));
    room.HearToTheEnd(speech);
    ASSERT_GE(clock.supposed.size(), 4U);
    EXPECT_LE(clock.supposed.size(), 4 * speech.size() / 16000 + 1);
    for (std::size_t i = 1; i < clock.supposed.size(); ++i)
        EXPECT_NE(clock.supposed[i]->PhraseInfo()->GetText(0, -1, true),
                  clock.supposed[i - 1]->PhraseInfo()->GetText(0, -1, true));
}

TEST_F(RuleChanges, MonthsAndCommandsAreHeardEachByTheirContext) {
    const Listening months(*room.engine, months_file.Path());
    const Listening commands(*room.engine, kCommands);
    Sound speech;
    for (const char* text :
         {"September", "what time is it", "close me", "maximize window", "April"})
        speech = testing::Joined(std::move(speech), Say(text, "rms"));
    room.HearToTheEnd(speech);
    std::string months_told;
    for (const auto& result : months.recognised) months_told += Told(result) + "; ";
    std::string commands_told;
    for (const auto& result : commands.recognised) commands_told += Told(result) + "; ";
    EXPECT_EQ(months_told, "September: September; close me: close me; April: April; ");
    EXPECT_EQ(commands_told, "the time: what time is it; maximize: maximize window; ");
}

TEST(Replacements, TenThousandOfThemTakeNoMemory) {
    Room room;
    Replacement context(room, kCommands);
    const auto replace = [&](int times) {
        for (int i = 0; i < times; ++i) {
            context.Whole();
            // The listening thread takes them up, too.
            if (i % 10 == 0)
                room.microphone.Hear(testing::Stillness(std::chrono::milliseconds(10)));
        }
        room.microphone.WaitUntilRead();
        room.messages.Run();
    };
    replace(1000);
    if (!testing::kMemoryCounts) return;
    const long after_thousand = testing::ResidentKilobytes();
    replace(9000);
    EXPECT_LT(testing::ResidentKilobytes() - after_thousand, 2048);
}

}  // namespace
}  // namespace corvane::engine
