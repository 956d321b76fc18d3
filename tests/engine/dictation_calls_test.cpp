// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// Which calls around dictation raise, and what they leave as it was.
#include <functional>
#include <memory>
#include <utility>

#include "support/dictating.h"
#include "support/error_of.h"

namespace corvane::engine {
namespace {

using testing::Dictating;
using testing::ErrorOf;
using testing::kThanks;
using testing::Listening;
using testing::Room;
using testing::Say;
using testing::TemporaryFile;
using testing::Told;

TEST_F(Dictating, ModelThatIsNoneRaisesAndLeavesTheCommandsAlone) {
    const TemporaryFile rubbish("this is no language model");
    SpeechEngineConfig config;
    config.language_model = rubbish.Path();
    room.engine = std::make_unique<SpeechEngine>(
        config, [this](std::function<void()> message) { room.messages.Post(std::move(message)); },
        room.microphone.Source());
    const Listening clock(*room.engine, time_file.Path());
    EXPECT_EQ(ErrorOf([&] { clock.grammar->DictationLoad("", SLOStatic); }), kAutomationError);
    EXPECT_EQ(ErrorOf([&] { clock.grammar->DictationSetState(SGDSActive); }), kAutomationError);
    room.HearToTheEnd(testing::Joined(Say(kThanks, "rms"), Say("what time is it", "rms")));
    ASSERT_FALSE(clock.recognised.empty());
    EXPECT_EQ(Told(clock.recognised.back()), "the time: what time is it");
}

class DictationCalls : public ::testing::Test {
protected:
    Room room;
    std::shared_ptr<ISpeechRecoContext> context = room.engine->CreateSpSharedRecoContext();
    std::shared_ptr<ISpeechRecoGrammar> grammar = context->CreateGrammar(0);
};

TEST_F(DictationCalls, OutOfOrderRaise) {
    EXPECT_EQ(ErrorOf([&] { grammar->DictationSetState(SGDSActive); }), kAutomationError);
    EXPECT_EQ(ErrorOf([&] { grammar->DictationUnload(); }), kAutomationError);
    grammar->DictationLoad("", SLOStatic);
    grammar->DictationLoad("", SLOStatic);
    grammar->DictationSetState(SGDSActive);
    grammar->DictationUnload();
    EXPECT_EQ(ErrorOf([&] { grammar->DictationSetState(SGDSActive); }), kAutomationError);
    EXPECT_EQ(ErrorOf([&] { grammar->DictationUnload(); }), kAutomationError);
}

TEST_F(DictationCalls, OnlyTheGeneralTopicAndKnownStatesAreTaken) {
    EXPECT_EQ(ErrorOf([&] { grammar->DictationLoad("spelling", SLOStatic); }), kAutomationError);
    grammar->DictationLoad("", SLOStatic);
    EXPECT_EQ(ErrorOf([&] { grammar->DictationSetState(2); }), kInvalidProcedureCall);
}

TEST_F(DictationCalls, WithoutItsModelTheLoadRaises) {
    SpeechEngineConfig config;
    config.language_model = "/nowhere.lm.bin";
    SpeechEngine engine(
        config, [](const std::function<void()>&) {}, room.microphone.Source());
    const auto other = engine.CreateSpSharedRecoContext()->CreateGrammar(0);
    EXPECT_EQ(ErrorOf([&] { other->DictationLoad("", SLOStatic); }), kAutomationError);
    EXPECT_EQ(ErrorOf([&] { other->DictationSetState(SGDSActive); }), kAutomationError);
}

TEST_F(DictationCalls, RecognizerOffersNoDialogs) {
    EXPECT_EQ(ErrorOf([&] { context->Recognizer()->DisplayUI(0, "Title", "UserTraining", ""); }),
              kAutomationError);
}
}  // namespace
}  // namespace corvane::engine
