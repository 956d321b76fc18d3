// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "engine/speech_engine.h"
#include "platform/error.h"
#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine {
namespace {

using testing::GrammarOf;
using testing::Joined;
using testing::Listening;
using testing::Room;
using testing::RuleOf;
using testing::Say;
using testing::Sound;
using testing::Stillness;
using testing::TemporaryFile;
using testing::Told;
using std::chrono_literals::operator""s;

/// Dialogs that are closed once something has been done.
class ShortDialogs final : public EngineDialogs {
public:
    void UserTraining(std::uint32_t, const std::string&, const std::string&,
                      UserProfile&) override {
        Show();
    }
    void AddRemoveWord(std::uint32_t, const std::string&, const std::string&,
                       UserProfile&) override {
        Show();
    }
    std::function<void()> while_shown;

private:
    void Show() const {
        const auto act = while_shown;  // it may be exchanged meanwhile
        act();
    }
};

/// Whoever trains reads aloud, and what is read may be a command.
class DialogPause : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing::CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
        SpeechEngineConfig config;
        config.dialogs = dialogs;
        room.engine = std::make_unique<SpeechEngine>(
            config, [this](std::function<void()> message) { room.messages.Post(message); },
            room.microphone.Source());
        command = Say("open the music");
    }

    /// In a dialog.
    void Hear(const std::string& dialog, const Sound& sound) {
        dialogs->while_shown = [&] { Hear(sound); };
        context()->Recognizer()->DisplayUI(0, "Title", dialog, "");
    }
    void Hear(const Sound& sound) {
        room.microphone.Hear(sound);
        room.microphone.WaitUntilRead();
        room.messages.Run();
    }
    std::shared_ptr<ISpeechRecoContext> context() { return listening->context; }
    [[nodiscard]] std::size_t Commands() const { return listening->recognised.size(); }

    std::shared_ptr<ShortDialogs> dialogs = std::make_shared<ShortDialogs>();
    TemporaryFile grammar{GrammarOf(RuleOf("play", "open the music"))};
    Sound command;
    Room room;
    std::unique_ptr<Listening> listening;
};

TEST_F(DialogPause, WhatIsSaidToADialogIsNoCommandThenOrLater) {
    listening = std::make_unique<Listening>(*room.engine, grammar.Path());
    Hear("UserTraining", command);
    Hear("AddRemoveWord", command);
    room.HearToTheEnd(Stillness(2s));
    EXPECT_EQ(Commands(), 0U);
    EXPECT_TRUE(listening->supposed.empty());
}

TEST_F(DialogPause, WhatBeginsInADialogIsNoCommandWhenItEndsBehindIt) {
    listening = std::make_unique<Listening>(*room.engine, grammar.Path());
    const auto half = command.begin() + std::ssize(command) / 2;
    Hear("UserTraining", {command.begin(), half});
    room.HearToTheEnd({half, command.end()});
    EXPECT_EQ(Commands(), 0U);
}

TEST_F(DialogPause, WhatEndsInADialogIsNoCommandEither) {
    listening = std::make_unique<Listening>(*room.engine, grammar.Path());
    const auto half = command.begin() + std::ssize(command) / 2;
    Hear({command.begin(), half});
    Hear("UserTraining", {half, command.end()});
    room.HearToTheEnd(Stillness(2s));
    EXPECT_EQ(Commands(), 0U);
}

TEST_F(DialogPause, WhatWasSaidToADialogAndIsReadBehindItIsNoCommand) {
    listening = std::make_unique<Listening>(*room.engine, grammar.Path());
    // More than can be read until the dialog closes, as when the engine was busy.
    dialogs->while_shown = [this] {
        room.microphone.Hear(Joined(Joined(Stillness(5s), command), Stillness(1s)));
    };
    context()->Recognizer()->DisplayUI(0, "Title", "UserTraining", "");
    room.microphone.WaitUntilRead();
    room.HearToTheEnd(Joined(Stillness(1s), command));
    ASSERT_EQ(Commands(), 1U) << "the one behind the dialog";
}

TEST_F(DialogPause, BehindTheDialogCommandsAreHeardAgain) {
    listening = std::make_unique<Listening>(*room.engine, grammar.Path());
    Hear("UserTraining", command);
    room.HearToTheEnd(Joined(Stillness(1s), command));
    ASSERT_EQ(Commands(), 1U);
    EXPECT_EQ(Told(listening->recognised[0]), "play: open the music");
}

TEST_F(DialogPause, ADialogThatShowsAnotherIsStillOneWhenThatIsClosed) {
    listening = std::make_unique<Listening>(*room.engine, grammar.Path());
    dialogs->while_shown = [this] {
        dialogs->while_shown = [] {};
        context()->Recognizer()->DisplayUI(0, "Title", "AddRemoveWord", "");
        Hear(command);
    };
    context()->Recognizer()->DisplayUI(0, "Title", "UserTraining", "");
    room.HearToTheEnd(Stillness(2s));
    EXPECT_EQ(Commands(), 0U);
}

TEST_F(DialogPause, ADialogThatFailsOrIsNotThereDeafensNobody) {
    listening = std::make_unique<Listening>(*room.engine, grammar.Path());
    dialogs->while_shown = [] { throw RuntimeError(kAutomationError, "It fails"); };
    EXPECT_THROW(context()->Recognizer()->DisplayUI(0, "", "UserTraining", ""), RuntimeError);
    EXPECT_THROW(context()->Recognizer()->DisplayUI(0, "", "MicTraining", ""), RuntimeError);
    room.HearToTheEnd(command);
    EXPECT_EQ(Commands(), 1U);
}

TEST_F(DialogPause, WhatIsSaidToADialogIsNotDictated) {
    const auto dictating = room.engine->CreateSpSharedRecoContext();
    std::string text;
    dictating->Advise({.Recognition =
                           [&text](std::int32_t, const Variant&, std::int32_t,
                                   const std::shared_ptr<ISpeechRecoResult>& result) {
                               text += result->PhraseInfo()->GetText(0, -1, true);
                           },
                       .Hypothesis = {},
                       .AudioLevel = {},
                       .Interference = {},
                       .Adaptation = {}});
    const auto pad = dictating->CreateGrammar(0);
    pad->DictationLoad("", SLOStatic);
    pad->DictationSetState(SGDSActive);
    dictating->SetEventInterests(SRERecognition);
    dialogs->while_shown = [&] { Hear(command); };
    dictating->Recognizer()->DisplayUI(0, "Title", "UserTraining", "");
    room.HearToTheEnd(Joined(Stillness(1s), Say("nobody knew")));
    EXPECT_EQ(text.find("music"), std::string::npos) << text;
    EXPECT_FALSE(text.empty());
}

}  // namespace
}  // namespace corvane::engine
