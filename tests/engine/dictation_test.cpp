// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "support/generated_sound.h"
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

std::int32_t ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

/// In small letters and without signs.
std::vector<std::string> WordsIn(const std::string& text) {
    std::string plain;
    for (const char c : text)
        if (std::string_view(".,?!:;\"").find(c) == std::string_view::npos)
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    std::istringstream words(plain);
    return {std::istream_iterator<std::string>(words), {}};
}

/// How many words of one text the other has in the same order, at most: their longest common
/// subsequence.
std::size_t WordsInCommon(const std::string& one, const std::string& other) {
    const std::vector<std::string> rows = WordsIn(one);
    const std::vector<std::string> columns = WordsIn(other);
    std::vector<std::size_t> above(columns.size() + 1);
    for (const std::string& word : rows) {
        std::vector<std::size_t> row{0};
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.push_back(word == columns[i] ? above[i] + 1 : std::max(above[i + 1], row[i]));
        above = std::move(row);
    }
    return above.back();
}

/// Whether at least so large a share of the wanted words was written, in their order. Free text is
/// never right for sure.
::testing::AssertionResult HasWordsOf(const std::string& wanted, const std::string& written,
                                      double share) {
    const auto count = static_cast<double>(WordsIn(wanted).size());
    if (static_cast<double>(WordsInCommon(wanted, written)) >= share * count)
        return ::testing::AssertionSuccess() << written;
    return ::testing::AssertionFailure() << "written: " << written;
}

::testing::AssertionResult Says(const std::shared_ptr<ISpeechRecoResult>& result,
                                const std::string& wanted, double share = 0.5) {
    return HasWordsOf(wanted, result->PhraseInfo()->GetText(0, -1, true), share);
}

std::string TextOf(const std::shared_ptr<ISpeechRecoResult>& result) {
    return result->PhraseInfo()->GetText(0, -1, true);
}

bool HasTwice(const std::string& word, const std::string& text) {
    return text.find(word) != text.rfind(word);
}

constexpr const char* kThanks = "thank you very much for your help";
constexpr const char* kCommittee = "the committee will meet again on monday morning";
/// About a quarter of a minute without a pause.
constexpr const char* kTalk =
    "the committee will meet again on monday morning and we would like to thank you very much for "
    "your help with the new school in the old part of the city because the people who live there "
    "have been waiting for it for many years and they will be very happy to see that the work has "
    "begun and after the meeting we will all walk back to the station";

/// Turns a context that listens for commands to dictation, as the program does it.
void StartDictation(ISpeechRecoGrammar& grammar) {
    grammar.CmdSetRuleIdState(0, SGDSInactive);
    grammar.DictationLoad("", SLOStatic);
    grammar.DictationSetState(SGDSActive);
}

class Dictating : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    TemporaryFile time_file{GrammarOf(RuleOf("the time", "what time is it"))};
    TemporaryFile months_file{GrammarOf(RuleOf("May", "May") + RuleOf("March", "March"))};
    Room room;
};

TEST_F(Dictating, WhatIsSaidIsTextThatBelongsToNoRule) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say(kCommittee));
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], kCommittee));
    EXPECT_EQ(pad.recognised[0]->PhraseInfo()->Rule()->Name(), "");
    EXPECT_GE(pad.recognised[0]->PhraseInfo()->Rule()->Confidence(), SECNormalConfidence);
    EXPECT_EQ(pad.recognised[0]->PhraseInfo()->GetText(1, 2, true), "committee will");
}

TEST_F(Dictating, PhrasesAreToldInTheirOrderEachWithItsPlace) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say(kThanks, "rms"), Say(kCommittee)));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
    EXPECT_TRUE(Says(pad.recognised[1], kCommittee));
    EXPECT_LT(pad.positions[0], 32000);
    EXPECT_GT(pad.positions[1], 32000 * 2);
}

TEST_F(Dictating, SurelyHeardCommandOfAnotherContextIsNoText) {
    const Listening clock(*room.engine, time_file.Path());
    const Listening pad(*room.engine, months_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("what time is it", "rms"), Say(kThanks, "rms")));
    ASSERT_EQ(clock.recognised.size(), 1U);
    EXPECT_EQ(Told(clock.recognised[0]), "the time: what time is it");
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
}

TEST_F(Dictating, WordOfAnotherContextWithinASentenceIsTextAndNothingElse) {
    const Listening calendar(*room.engine, months_file.Path());
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("the school will be closed in march and april", "rms"),
                                      Say("march", "rms")));
    ASSERT_EQ(calendar.recognised.size(), 1U);
    EXPECT_EQ(Told(calendar.recognised[0]), "March: March");
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], "be closed in march and april", 0.8));
}

class DictatingVoice : public Dictating, public ::testing::WithParamInterface<std::string> {};

TEST_P(DictatingVoice, EditingPhraseSaidAloneIsToldInItsWords) {
    const std::vector<std::string> phrases{"delete",           "train that",   "quit dictation",
                                           "clear everything", "scratch that", "print page"};
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    Sound sound;
    for (const std::string& phrase : phrases)
        sound = testing::Joined(std::move(sound), Say(phrase, GetParam()));
    room.HearToTheEnd(sound);
    std::vector<std::string> told;
    for (const auto& result : pad.recognised) {
        told.push_back(TextOf(result));
        EXPECT_EQ(result->PhraseInfo()->Rule()->Name(), "");
    }
    EXPECT_EQ(told, phrases);
}

INSTANTIATE_TEST_SUITE_P(OfFlite, DictatingVoice, ::testing::Values("slt", "rms", "awb"),
                         [](const auto& voice) { return voice.param; });

TEST_F(Dictating, EditingPhraseWithinASentenceIsText) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("he told me to print page three of the letter", "rms"),
                                      Say("we will never quit dictation", "rms")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_TRUE(Says(pad.recognised[0], "he told me to page three of the letter", 0.6));
    EXPECT_TRUE(Says(pad.recognised[1], "we will never", 1.0));
}

TEST_F(Dictating, TextThatBeginsLikeAnEditingPhraseIsText) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say("clear everything up", "rms"));
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "Clear everything up");
}

TEST_F(Dictating, EditingPhraseIsToldBehindTheTextBeforeIt) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say(kThanks, "rms"), Say("scratch that", "rms")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
    EXPECT_EQ(TextOf(pad.recognised[1]), "scratch that");
    EXPECT_LT(pad.positions[0], pad.positions[1]);
}

TEST_F(Dictating, SupposesNoPhraseOfItsOwn) {
    const Listening pad(*room.engine, time_file.Path(), SREHypothesis);
    pad.grammar->CmdSetRuleIdState(0, SGDSInactive);
    pad.grammar->DictationLoad("", SLOStatic);
    pad.grammar->DictationSetState(SGDSActive);
    room.microphone.Hear(Say("clear everything", "rms"));
    room.HearToTheEnd(Say("quit dictation", "rms"));
    for (const auto& result : pad.supposed) EXPECT_NE(TextOf(result), "quit dictation");
}

TEST_F(Dictating, MarksAreWrittenAtTheirWords) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("i think so comma but i am not sure period", "rms"),
                                      Say("can you come on friday question mark", "rms")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "I think so, but I am not sure.");
    EXPECT_EQ(TextOf(pad.recognised[1]), "Can you come on Friday?");
}

TEST_F(Dictating, MarkSaidAloneIsItsSign) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("comma", "rms"), Say("exclamation mark", "slt")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_EQ(TextOf(pad.recognised[0]), ",");
    EXPECT_EQ(TextOf(pad.recognised[1]), "!");
}

TEST_F(Dictating, PeriodOfTimeIsNoMark) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say("it was a long period of time", "rms"));
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "It was a long period of time");
}

TEST_F(Dictating, NewLineIsACarriageReturnAndNothingElse) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(Say("new line", "rms"), Say("new line", "slt")));
    ASSERT_EQ(pad.recognised.size(), 2U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "\r");
    EXPECT_EQ(TextOf(pad.recognised[1]), "\r");
}

TEST_F(Dictating, ParagraphWithinSpeechIsTwoLineBreaksBetweenTwoTexts) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(
        Say("this is the end period new paragraph the committee will meet again", "rms"));
    ASSERT_EQ(pad.recognised.size(), 4U);
    EXPECT_EQ(TextOf(pad.recognised[0]), "This is the end.");
    EXPECT_EQ(TextOf(pad.recognised[1]), "\r");
    EXPECT_EQ(TextOf(pad.recognised[2]), "\r");
    EXPECT_TRUE(TextOf(pad.recognised[3]).starts_with("The committee"));
    EXPECT_LT(pad.positions[0], pad.positions[1]);
    EXPECT_LE(pad.positions[2], pad.positions[3]);
}

TEST_F(Dictating, TalkLongerThanAnUtteranceIsWrittenInPiecesAndNoneIsACommand) {
    const Listening clock(*room.engine, time_file.Path());
    const Listening pad(*room.engine, months_file.Path());
    StartDictation(*pad.grammar);
    const Sound talk = Say(kTalk, "rms");
    ASSERT_GT(talk.size(), std::size_t{14} * 16000);
    room.HearToTheEnd(talk);
    EXPECT_TRUE(clock.recognised.empty());
    ASSERT_GE(pad.recognised.size(), 2U);
    std::string written;
    for (std::size_t i = 0; i < pad.recognised.size(); ++i) {
        const auto phrase = pad.recognised[i]->PhraseInfo();
        EXPECT_EQ(phrase->Rule()->Name(), "");
        written += (i == 0 ? "" : " ") + phrase->GetText(0, -1, true);
        if (i > 0) {
            EXPECT_GT(pad.positions[i], pad.positions[i - 1]);
        }
    }
    EXPECT_TRUE(HasWordsOf(kTalk, written, 0.7));
    EXPECT_TRUE(HasWordsOf("to the station", written, 1.0)) << "its last words";
    EXPECT_FALSE(HasTwice("committee", written)) << written;
}

TEST_F(Dictating, CommandSaidInALongTalkIsTextAndOneSaidBehindItIsCarriedOut) {
    const Listening clock(*room.engine, time_file.Path());
    const Listening pad(*room.engine, months_file.Path());
    StartDictation(*pad.grammar);
    const Sound talk = Say(std::string(kTalk) + " what time is it", "rms");
    room.HearToTheEnd(testing::Joined(talk, Say("what time is it", "rms")));
    ASSERT_EQ(clock.recognised.size(), 1U);
    EXPECT_GE(clock.positions[0], static_cast<std::int64_t>(talk.size() * sizeof(talk[0])));
    ASSERT_FALSE(pad.recognised.empty());
    EXPECT_TRUE(Says(pad.recognised.back(), "time is it", 1.0));
}

TEST_F(Dictating, BegunBehindTheCutOfALongTalkItWritesTheRest) {
    const Listening pad(*room.engine, time_file.Path(), SRERecognition);
    const Sound talk = Say(kTalk, "rms");
    const std::ptrdiff_t most = std::ptrdiff_t{13} * 16000;
    room.microphone.Hear({talk.begin(), talk.begin() + most});
    for (int i = 0; i < 50; ++i) room.microphone.WaitUntilRead();
    StartDictation(*pad.grammar);
    room.HearToTheEnd({talk.begin() + most, talk.end()});
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_GT(pad.positions[0], 32000 * 9);
    EXPECT_TRUE(Says(pad.recognised[0], "to the station", 1.0));
    EXPECT_EQ(pad.recognised[0]->PhraseInfo()->Rule()->Name(), "");
}

TEST_F(Dictating, ContextThatComesDuringALongTalkLosesNothingOfIt) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    const Sound talk = Say(kTalk, "rms");
    const std::ptrdiff_t most = std::ptrdiff_t{13} * 16000;
    room.microphone.Hear({talk.begin(), talk.begin() + most});
    for (int i = 0; i < 50; ++i) room.microphone.WaitUntilRead();
    const Listening calendar(*room.engine, months_file.Path());
    room.HearToTheEnd({talk.begin() + most, talk.end()});
    EXPECT_TRUE(calendar.recognised.empty());
    std::string written;
    for (const auto& result : pad.recognised)
        written += (written.empty() ? "" : " ") + result->PhraseInfo()->GetText(0, -1, true);
    EXPECT_TRUE(HasWordsOf(kTalk, written, 0.7));
    EXPECT_TRUE(HasWordsOf("to the station", written, 1.0));
    EXPECT_FALSE(HasTwice("station", written)) << written;
}

TEST_F(Dictating, HumThatIsSwitchedOnIsNotWritten) {
    using std::chrono_literals::operator""s;
    testing::GeneratedSound make;
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.HearToTheEnd(testing::Joined(
        make.Noise(2s, 20.0), testing::Mixed(make.Noise(11s, 20.0), make.Hum(11s, 500.0, 100.0))));
    EXPECT_TRUE(pad.recognised.empty());
}

TEST_F(Dictating, OfTwoThatDictateTheNewerContextIsTold) {
    const Listening older(*room.engine, time_file.Path());
    const Listening newer(*room.engine, months_file.Path());
    StartDictation(*newer.grammar);
    StartDictation(*older.grammar);
    room.HearToTheEnd(Say(kThanks, "rms"));
    EXPECT_TRUE(older.recognised.empty());
    EXPECT_EQ(newer.recognised.size(), 1U);
}

TEST_F(Dictating, TextIsSupposedWhileItIsSaid) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    const Sound speech = Say(kThanks, "rms");
    const auto most = static_cast<std::ptrdiff_t>(speech.size() - 16000);
    room.microphone.Hear({speech.begin(), speech.begin() + most});
    ASSERT_TRUE(room.messages.WaitForOne());
    room.messages.Run();
    ASSERT_FALSE(pad.supposed.empty());
    EXPECT_EQ(pad.supposed[0]->PhraseInfo()->Rule()->Name(), "");
    EXPECT_LT(pad.supposed[0]->PhraseInfo()->Rule()->Confidence(), SECHighConfidence);
    EXPECT_TRUE(pad.recognised.empty());
    room.HearToTheEnd({speech.begin() + most, speech.end()});
    EXPECT_EQ(pad.recognised.size(), 1U);
}

TEST_F(Dictating, NothingIsSupposedThatNobodyWantsToKnow) {
    const Listening pad(*room.engine, time_file.Path(), SRERecognition);
    StartDictation(*pad.grammar);
    room.HearToTheEnd(Say(kThanks, "rms"));
    EXPECT_TRUE(pad.supposed.empty());
    EXPECT_EQ(pad.recognised.size(), 1U);
}

TEST_F(Dictating, BegunInTheMiddleOfSpeechItWritesAllOfIt) {
    const Listening pad(*room.engine, time_file.Path());
    const Sound speech = Say(kThanks, "rms");
    const auto half = static_cast<std::ptrdiff_t>(speech.size() / 2);
    room.microphone.Hear({speech.begin(), speech.begin() + half});
    room.microphone.WaitUntilRead();
    StartDictation(*pad.grammar);
    room.HearToTheEnd({speech.begin() + half, speech.end()});
    ASSERT_EQ(pad.recognised.size(), 1U);
    EXPECT_TRUE(Says(pad.recognised[0], kThanks));
}

TEST_F(Dictating, LoadedButNotActiveItWritesNothing) {
    const Listening pad(*room.engine, time_file.Path());
    pad.grammar->DictationLoad("", SLOStatic);
    room.HearToTheEnd(testing::Joined(Say(kThanks, "rms"), Say("what time is it", "rms")));
    std::string told;
    for (const auto& result : pad.recognised)
        if (result->PhraseInfo()->Rule()->Confidence() == SECHighConfidence) told += Told(result);
    EXPECT_EQ(told, "the time: what time is it");
}

TEST_F(Dictating, EndsWithItsContext) {
    auto pad = std::make_unique<Listening>(*room.engine, time_file.Path());
    StartDictation(*pad->grammar);
    room.microphone.Hear(Say(kThanks, "rms"));
    room.microphone.WaitUntilRead();
    pad->context.reset();
    const Listening commands(*room.engine, time_file.Path());
    room.HearToTheEnd(Say("what time is it", "rms"));
    EXPECT_TRUE(pad->recognised.empty());
    ASSERT_FALSE(commands.recognised.empty());
    EXPECT_EQ(Told(commands.recognised.back()), "the time: what time is it");
}

TEST_F(Dictating, EngineMayEndWhileTextIsWritten) {
    const Listening pad(*room.engine, time_file.Path());
    StartDictation(*pad.grammar);
    room.microphone.Hear(Say(kThanks, "rms"));
    room.microphone.WaitUntilRead();
    room.engine.reset();
    pad.grammar->DictationSetState(SGDSInactive);
    pad.grammar->DictationUnload();
    pad.grammar->DictationLoad("", SLOStatic);
}

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

TEST_F(Dictating, UnloadedItGivesItsMemoryBack) {
    if (!testing::kMemoryCounts) GTEST_SKIP() << "a sanitizer keeps what was freed";
    constexpr long kMegabyte = 1024;
    const Listening pad(*room.engine, time_file.Path());
    const long before = testing::ResidentKilobytes();
    StartDictation(*pad.grammar);
    room.microphone.Hear(Say(kThanks, "rms"));
    while (pad.recognised.empty()) {
        ASSERT_TRUE(room.messages.WaitForOne());
        room.messages.Run();
    }
    const long dictating = testing::ResidentKilobytes();
    EXPECT_GT(dictating, before + 50 * kMegabyte);
    EXPECT_LT(dictating, 350 * kMegabyte);
    pad.grammar->DictationUnload();
    const long enough = before + 25 * kMegabyte;
    for (int i = 0; i < 400 && testing::ResidentKilobytes() > enough; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_LE(testing::ResidentKilobytes(), enough);
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
