// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Words that are heard as they are said, and recorded to be written down.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "words_page_fixture.h"

namespace corvane::linux_desktop {
namespace {

using engine::WaysToSay;
using std::chrono_literals::operator""s;

TEST_F(WordsPageTest, TheChosenWayIsHeard) {
    Open("read");
    Press("hear");
    Ways().setCurrentRow(1);
    Press("hear");
    Write("sounds", "R AA D");
    Press("hear");
    EXPECT_EQ(said, (std::vector<std::string>{"R EH D", "R IY D", "R AA D"}));
}

TEST_F(WordsPageTest, WhatIsHeardIsCutOffByARecordingAndByTheEndOfThePage) {
    Open("corvane");
    Press("hear");
    Press("record");
    Press("record");
    Press("hear");
    page->hide();
    EXPECT_EQ(said, (std::vector<std::string>{"K AO R V EY N", "-", "K AO R V EY N", "-"}));
}

TEST_F(WordsPageTest, AMissingVoiceIsTold) {
    voice = false;
    Open("corvane");
    Press("hear");
    EXPECT_EQ(Status(), "no voice is installed");
}

TEST_F(WordsPageTest, ARecordingGivesOneMoreWay) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Write("sounds", "K AA R M AH N");
    Record("corvane");
    ASSERT_TRUE(Await([&] { return Ways().count() == 2; })) << Status();
    EXPECT_EQ(Ways().currentRow(), 1);
    EXPECT_EQ(Ways().item(1)->checkState(), Qt::Checked);
    EXPECT_EQ(The<QLineEdit>("sounds")->text(), Ways().item(1)->text());
    EXPECT_EQ(The<QPushButton>("record")->text(), "&Record it");
    Press("add");
    EXPECT_EQ(profile->Words().at("corvane").size(), 2U);
}

TEST_F(WordsPageTest, ARecordingOfOneWordIsNoWayToSayAnother) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Status() == "Writing it down\u2026"; })) << Status();
    Write("word", "read");
    ASSERT_TRUE(Await([&] { return WaysShown().front() == "+ R EH D"; }));
    page.reset();  // waits for what is being written down
    EXPECT_TRUE(profile->Words().empty());
}

TEST_F(WordsPageTest, ADeadMicrophoneIsTold) {
    Open("corvane");
    Press("record");
    EXPECT_EQ(The<QPushButton>("record")->text(), "Stop &recording");
    microphone.HangUp();
    ASSERT_TRUE(Await([&] { return Status().starts_with("No sound comes"); })) << Status();
    EXPECT_EQ(The<QPushButton>("record")->text(), "Stop &recording") << "it may come back";
    const auto over = [&] { return The<QPushButton>("record")->text() == "&Record it"; };
    ASSERT_TRUE(Await(over));
    EXPECT_TRUE(Status().starts_with("No sound comes")) << Status();
}

TEST_F(WordsPageTest, AMicrophoneThatIsSilentBetweenWordsIsWaitedFor) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Press("record");
    microphone.Hear(engine::testing::Stillness(4s));
    ASSERT_TRUE(Await([&] { return Status().starts_with("No sound comes"); })) << Status();
    microphone.Hear(
        engine::testing::Joined(engine::testing::Say("corvane"), engine::testing::Stillness(2s)));
    EXPECT_TRUE(Await([&] { return Status().starts_with("You said"); })) << Status();
}

TEST_F(WordsPageTest, AChangeDropsWhatIsStillBeingWrittenDown) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Status() == "Writing it down\u2026"; })) << Status();
    EXPECT_FALSE(The<QPushButton>("record")->isEnabled());
    Press("add");
    EXPECT_TRUE(The<QPushButton>("record")->isEnabled());
    Write("sounds", "K AA R");
    Record("corvane");
    ASSERT_TRUE(Await([&] { return Status().starts_with("You said"); })) << Status();
    EXPECT_EQ(Ways().count(), 2) << "the banana is none of them";
    EXPECT_EQ(profile->Words().at("corvane"), (WaysToSay{"K AO R V EY N"}));
}

TEST_F(WordsPageTest, AWordIsWrittenDownThoughThePageIsHiddenMeanwhile) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Status() == "Writing it down\u2026"; })) << Status();
    page->hide();
    EXPECT_TRUE(Await([&] { return Ways().count() == 2; })) << Status();
}

TEST_F(WordsPageTest, ARecordingIsWrittenDownInTheVoiceThatThereIs) {
    if (!engine::testing::CanSpeak())
        GTEST_SKIP() << "flite, which speaks in this test, is missing";
    Open("corvane");
    Record("banana");
    ASSERT_TRUE(Await([&] { return Ways().count() == 2; })) << Status();
    // A voice that nobody has, in which all is heard as something else.
    engine::SpeakerTransform odd = engine::SpeakerTransform::Identity();
    for (auto& stream : odd.streams)
        for (std::size_t i = 0; i < stream.a.size(); ++i) stream.a[i][i] = -1.0F;
    profile->KeepVoice(odd);
    Record("banana");
    const auto written = [&] {
        return Status().starts_with("You said") || Status().starts_with("That did not");
    };
    ASSERT_TRUE(Await(written)) << Status();
    EXPECT_NE(Status(), "You said it as it is written down already.");
}

TEST_F(WordsPageTest, TheMicrophoneIsLetGoOfWhenStoppedOrHidden) {
    Open("corvane");
    Press("record");
    Press("record");
    EXPECT_EQ(The<QPushButton>("record")->text(), "&Record it");
    EXPECT_EQ(Status(), "");
    Press("record");
    page->hide();
    EXPECT_EQ(The<QPushButton>("record")->text(), "&Record it");
}

}  // namespace
}  // namespace corvane::linux_desktop
