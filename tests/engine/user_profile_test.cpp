// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/user_profile.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "engine/speech_engine.h"
#include "platform/error.h"
#include "support/room.h"
#include "support/temporary_file.h"
#include "support/temporary_folder.h"

namespace corvane::engine {
namespace {

using testing::GrammarOf;
using testing::Listening;
using testing::Room;
using testing::RuleOf;
using testing::Say;
using testing::Sound;
using testing::TemporaryFile;

/// Dialogs that write down how they were shown.
class WrittenDialogs final : public EngineDialogs {
public:
    void UserTraining(std::uint32_t parent, const std::string& title, const std::string& sentence,
                      UserProfile& profile) override {
        shown.push_back("train " + std::to_string(parent) + " " + title + " '" + sentence + "'");
        profile.KeepVoice(SpeakerTransform::Identity());
    }
    void AddRemoveWord(std::uint32_t parent, const std::string& title, const std::string& word,
                       UserProfile& profile) override {
        shown.push_back("word " + std::to_string(parent) + " " + title + " '" + word + "'");
        profile.AddWord("zorbel", {"Z AO R B EH L"});
    }
    std::vector<std::string> shown;
};

/// A room whose engine keeps what it learns.
class OwnRoom : public Room {
public:
    explicit OwnRoom(SpeechEngineConfig config) {
        engine = std::make_unique<SpeechEngine>(
            std::move(config),
            [this](std::function<void()> message) { messages.Post(std::move(message)); },
            microphone.Source());
    }
};

class UserProfileTest : public ::testing::Test {
protected:
    UserProfileTest() { config.user_folder = folder.Path(); }

    testing::TemporaryFolder folder;
    SpeechEngineConfig config;
};

TEST_F(UserProfileTest, TheEnginesDialogsAreShownByItsHost) {
    const auto dialogs = std::make_shared<WrittenDialogs>();
    config.dialogs = dialogs;
    OwnRoom room(config);
    const auto recognizer = room.engine->CreateSpSharedRecoContext()->Recognizer();
    recognizer->DisplayUI(7, "A title", "UserTraining", "read this");
    recognizer->DisplayUI(8, "Another", "AddRemoveWord", "");
    EXPECT_EQ(dialogs->shown,
              (std::vector<std::string>{"train 7 A title 'read this'", "word 8 Another ''"}));
    EXPECT_TRUE(room.engine->Profile()->Voice());
    EXPECT_TRUE(room.engine->Profile()->Words().contains("zorbel"));
    EXPECT_THROW(recognizer->DisplayUI(8, "Another", "MicTraining", ""), RuntimeError);
}

TEST_F(UserProfileTest, AnEngineWithoutDialogsRaises) {
    const OwnRoom room(config);
    const auto recognizer = room.engine->CreateSpSharedRecoContext()->Recognizer();
    EXPECT_THROW(recognizer->DisplayUI(7, "A title", "UserTraining", ""), RuntimeError);
    EXPECT_THROW(recognizer->DisplayUI(7, "A title", "AddRemoveWord", ""), RuntimeError);
}

TEST_F(UserProfileTest, WaysToSayAWordAreSuggested) {
    const OwnRoom room(config);
    const auto profile = room.engine->Profile();
    EXPECT_EQ(profile->WaysFor("corvane"), (WaysToSay{"K AO R V EY N"}));
    EXPECT_EQ(profile->WaysFor("read").size(), 2U);
    EXPECT_TRUE(profile->WaysFor("--").empty());
    EXPECT_TRUE(profile->WaysFor("two words").empty());
}

TEST_F(UserProfileTest, AChosenPronunciationIsHeardAtOnceAndNoOther) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    OwnRoom room(config);
    const TemporaryFile grammar(GrammarOf(RuleOf("play", "open xqz") + RuleOf("stop", "close it")));
    const Listening listening(*room.engine, grammar.Path());
    room.engine->Profile()->AddWord("XQZ", room.engine->Profile()->WaysFor("banana"));
    room.HearToTheEnd(Say("open banana"));
    ASSERT_EQ(listening.recognised.size(), 1U);
    EXPECT_EQ(testing::Told(listening.recognised[0]), "play: open xqz");
}

/// Whether the one command there is, said as the model's voices say it, is carried out.
bool IsCarriedOut(Room& room) {
    const TemporaryFile grammar(GrammarOf(RuleOf("play", "open the music")));
    const Listening listening(*room.engine, grammar.Path());
    room.HearToTheEnd(Say("open the music"));
    return listening.recognised.size() == 1 &&
           listening.recognised[0]->PhraseInfo()->Rule()->Confidence() == SECHighConfidence;
}

TEST_F(UserProfileTest, ATrainedVoiceIsExpectedOfCommandsUntilItIsUndone) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    // A voice so far away that nobody has it: who speaks as the model does is not understood.
    SpeakerTransform far = SpeakerTransform::Identity();
    for (std::size_t i = 0; i < kStreamSize; ++i) far.streams[0].a[i][i] = -1.0F;
    OwnRoom room(config);
    room.engine->Profile()->KeepVoice(far);
    EXPECT_FALSE(IsCarriedOut(room));

    OwnRoom later(config);
    const auto context = later.engine->CreateSpSharedRecoContext();
    later.engine->Profile()->UndoVoice();
    EXPECT_TRUE(IsCarriedOut(later));
}

/// A context that dictates and keeps what it is told.
class Dictating {
public:
    explicit Dictating(SpeechEngine& engine) : context(engine.CreateSpSharedRecoContext()) {
        SpeechRecoContextEvents events;
        events.Recognition = [this](std::int32_t, const Variant&, std::int32_t,
                                    const std::shared_ptr<ISpeechRecoResult>& result) {
            text += result->PhraseInfo()->GetText(0, -1, true) + "\n";
        };
        events.Adaptation = [this](std::int32_t number, const Variant& position) {
            EXPECT_EQ(number, 1);
            EXPECT_TRUE(std::holds_alternative<std::monostate>(position));
            ++adapted;
        };
        context->Advise(std::move(events));
        grammar = context->CreateGrammar(0);
        grammar->DictationLoad("", SLOStatic);
        grammar->DictationSetState(SGDSActive);
        context->SetEventInterests(SRERecognition + SREAdaptation);
    }

    std::shared_ptr<ISpeechRecoContext> context;
    std::shared_ptr<ISpeechRecoGrammar> grammar;
    std::string text;
    int adapted = 0;
};

TEST_F(UserProfileTest, AnAddedWordIsDictated) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    OwnRoom room(config);
    const Dictating pad(*room.engine);
    room.engine->Profile()->AddWord("Zorbel", {"Z AO R B EH L"});
    room.HearToTheEnd(Say("please open the zorbel now"));
    EXPECT_NE(pad.text.find("Zorbel"), std::string::npos) << pad.text;
}

TEST_F(UserProfileTest, ARemovedWordIsDictatedNoMore) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    OwnRoom room(config);
    const Dictating pad(*room.engine);
    room.engine->Profile()->AddWord("Zorbel", {"Z AO R B EH L"});
    room.engine->Profile()->RemoveWord("Zorbel");
    room.HearToTheEnd(Say("please open the zorbel now"));
    EXPECT_FALSE(pad.text.empty());
    EXPECT_EQ(pad.text.find("Zorbel"), std::string::npos) << pad.text;
}

/// What is carried out, rule by rule, when this is said to commands that open one word or another.
std::vector<std::string> CarriedOut(Room& room, const std::string& said) {
    const TemporaryFile grammar(GrammarOf(RuleOf("play", "open xqz") + RuleOf("stop", "close it") +
                                          RuleOf("other", "open the letter")));
    const Listening listening(*room.engine, grammar.Path());
    room.HearToTheEnd(Say(said));
    std::vector<std::string> told;
    for (const auto& result : listening.recognised)
        if (result->PhraseInfo()->Rule()->Confidence() == SECHighConfidence)
            told.push_back(testing::Told(result));
    return told;
}

TEST_F(UserProfileTest, ARemovedPronunciationIsACommandNoMore) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    OwnRoom room(config);
    const auto profile = room.engine->Profile();
    profile->AddWord("xqz", profile->WaysFor("banana"));
    profile->RemoveWord("xqz");
    EXPECT_TRUE(CarriedOut(room, "open banana").empty());
}

TEST_F(UserProfileTest, AnotherPronunciationIsHeardInPlaceOfTheFirst) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    OwnRoom room(config);
    const auto profile = room.engine->Profile();
    profile->AddWord("xqz", profile->WaysFor("thursday"));
    profile->AddWord("xqz", profile->WaysFor("banana"));
    EXPECT_EQ(CarriedOut(room, "open banana"), (std::vector<std::string>{"play: open xqz"}));
}

TEST_F(UserProfileTest, ARecordedPronunciationIsHeard) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    for (const char* word : {"zorbel", "banana", "gwendolyn"}) {
        OwnRoom room(config);
        const auto profile = room.engine->Profile();
        const std::string phones =
            profile->PhoneWriterMaker()()->Write(Say(word), profile->WaysFor(word));
        ASSERT_TRUE(ArePhones(phones)) << word;
        profile->AddWord("xqz", {phones});
        EXPECT_EQ(CarriedOut(room, std::string("open ") + word),
                  (std::vector<std::string>{"play: open xqz"}))
            << word << " as " << phones;
    }
}

TEST_F(UserProfileTest, NewWordsOfATextAreDictatedAndKept) {
    if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    {
        OwnRoom room(config);
        const Dictating pad(*room.engine);
        pad.context->SetAdaptationData("Open the zorbel. Nobody knew the Zorbel!");
        EXPECT_TRUE(room.messages.WaitForOne());
        room.HearToTheEnd(Say("please open the zorbel now"));
        EXPECT_EQ(pad.adapted, 1);
        EXPECT_NE(pad.text.find("zorbel"), std::string::npos) << pad.text;
    }
    const OwnRoom later(config);
    EXPECT_EQ(later.engine->Profile()->Words().size(), 1U);
    EXPECT_TRUE(later.engine->Profile()->Words().contains("zorbel"));
}

TEST_F(UserProfileTest, AnEmptyTextIsTakenInTooAndToldToWhoGaveItAlone) {
    OwnRoom room(config);
    const Dictating pad(*room.engine);
    const Dictating other(*room.engine);
    pad.grammar->DictationUnload();
    other.grammar->DictationUnload();
    pad.context->SetAdaptationData("");
    ASSERT_TRUE(room.messages.WaitForOne());
    room.messages.Run();
    EXPECT_EQ(pad.adapted, 1);
    EXPECT_EQ(other.adapted, 0);
}

TEST_F(UserProfileTest, WithoutTheInterestNothingIsToldOfAnAdaptation) {
    OwnRoom room(config);
    const Dictating pad(*room.engine);
    pad.grammar->DictationUnload();
    pad.context->SetEventInterests(0);
    pad.context->SetAdaptationData("hello");
    ASSERT_TRUE(room.messages.WaitForOne());
    room.messages.Run();
    EXPECT_EQ(pad.adapted, 0);
}

}  // namespace
}  // namespace corvane::engine
