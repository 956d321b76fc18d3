// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/speech_engine.h"
#include "linux/training/voice_session.h"
#include "support/room.h"
#include "support/temporary_folder.h"

namespace corvane::linux_desktop {

inline const std::vector<std::string> kSentences{
    "The yellow boat slowly turned towards the harbour wall.",
    "Please bring a thick blanket and five warm pillows.",
    "Joyce could hear the church bells ring at noon.",
    "We usually measure the garden before the spring.",
    "My uncle enjoys good coffee after a long walk.",
    "The judge asked the witness about the strange noise."};

/// A session of training, what it tells of itself and the microphone that is read into.
class VoiceSessionTest : public ::testing::Test {
protected:
    using Advice = VoiceSession::Advice;
    using Outcome = VoiceSession::Outcome;
    using Stage = VoiceSession::Stage;

    void SetUp() override {
        if (!engine::testing::CanSpeak())
            GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    void Begin(std::vector<std::string> sentences = kSentences) {
        if (!profile) MakeProfile();
        session = std::make_unique<VoiceSession>(
            *profile, std::move(sentences), microphone.Source(),
            VoiceSession::Events{.Changed = [] {},
                                 .Level =
                                     [this](int to) {
                                         level = to;
                                         loudest = std::max(loudest, to);
                                     },
                                 .Leave = [this] { left = true; },
                                 .Anew = [this] { anew = true; }});
    }
    void MakeProfile() {
        const SpeechEngineConfig config;
        profile = std::make_unique<engine::UserProfile>(
            engine::UserProfile::Places{.folder = folder.Path() + "/user",
                                        .acoustic_model = config.acoustic_model,
                                        .dictionary = config.dictionary},
            engine::Complain());
    }
    const VoiceSession::State& Now() { return session->Now(); }

    /// Reads it aloud and takes breath.
    void Hear(const engine::testing::Sound& sound) {
        microphone.Hear(
            engine::testing::Joined(sound, engine::testing::Stillness(std::chrono::seconds(1))));
    }
    static bool Await(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 60'000);
    }
    bool AwaitAdvice(Advice advice) {
        return Await([&] { return Now().advice == advice; });
    }
    bool AwaitSentence(std::size_t number) {
        return Await([&] { return Now().number == number; });
    }
    /// Whether that sentence, now shown, is read and followed by another or the training.
    bool ReadsWell(const engine::testing::Sound& sound) {
        const std::size_t number = Now().number;
        Hear(sound);
        return Await([&] { return Now().number != number || Now().stage > Stage::reading; });
    }
    void ReadAll() {
        session->Start();
        for (std::size_t i = 0; i < kSentences.size(); ++i)
            ASSERT_TRUE(ReadsWell(engine::testing::SayAsSomebodySmall(Now().sentence))) << i;
    }
    bool AwaitEnd() {
        return Await([&] { return Now().stage == Stage::over; });
    }
    [[nodiscard]] bool AnythingIsKept() const {
        return profile->Voice() || std::filesystem::exists(folder.Path() + "/user/voice.mllr");
    }

    engine::testing::TemporaryFolder folder;
    std::unique_ptr<engine::UserProfile> profile;
    engine::testing::Microphone microphone;
    int level = 0;
    int loudest = 0;
    bool left = false;
    bool anew = false;
    std::unique_ptr<VoiceSession> session;
};

}  // namespace corvane::linux_desktop
