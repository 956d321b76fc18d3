// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/startup.h"
#include "support/desk.h"

namespace corvane {
namespace {

using testing::Desk;
using namespace std::chrono_literals;
using namespace std::string_literals;

const std::string kSettings = "SOFTWARE\\Brindel\\ktcv";
const std::string kTrainingDue = "checktraining";

/// A start with what an installation, or the last start, has left in the settings.
class FirstRunTraining : public ::testing::Test {
protected:
    void Leave(std::uint32_t type, const std::string& bytes) {
        desk.desktop.registry.Put(kSettings, kTrainingDue, {type, bytes});
    }
    /// As an installation does: the text and its terminator.
    void Install() { Leave(REG_SZ, "1\0"s); }

    [[nodiscard]] std::string Kept() const {
        const auto value = desk.desktop.registry.Get(kSettings, kTrainingDue);
        return value ? value->bytes : "none";
    }

    /// All calls of the start.
    std::string Start() {
        desk.Launch();
        desk.desktop.RunFor(5s);
        return desk.Transcript();
    }

    [[nodiscard]] std::string Wizard() const {
        return "DisplayUI " + std::to_string(desk.desktop.windows.Window("Form5").handle) +
               " \"Corvane --Training\" UserTraining \"\"\n";
    }

    static bool Contains(const std::string& transcript, const std::string& call) {
        return transcript.find(call) != std::string::npos;
    }

    Desk desk;
};

TEST_F(FirstRunTraining, ComesBetweenTheRecogniserAndTheVoiceAndTheValueIsZeroAfterIt) {
    Install();
    const std::string start = Start();
    EXPECT_EQ(start,
              "Show Form4\n"
              "Hide Form4\n"
              "CreateSpSharedRecoContext\n"
              "CmdLoadFromFile /opt/corvane/keywords.xml 1\n"
              "CmdSetRuleIdState 0 1\n"
              "rc.EventInterests 66608\n"
              "RegOpenKeyExA SOFTWARE\\Brindel\\ktcv\\ 1\n"
              "RegQueryValueExA checktraining\n"
              "RegQueryValueExA checktraining\n"
              "RegCloseKey\n" +
                  Wizard() +
                  "RegCreateKeyExA SOFTWARE\\Brindel\\ktcv\\ 131078\n"
                  "RegSetValueExA checktraining 0\n"
                  "RegCloseKey\n"
                  "CreateSpVoice\n"
                  "OpenTextFile /opt/corvane/keywords.txt\n"
                  "OpenTextFile /opt/corvane/keywords.txt\n"
                  "Show Form2\n");
    // Without a terminator, so that it reads back as nothing at all.
    EXPECT_EQ(Kept(), "0");
    EXPECT_TRUE(desk.MainWindowVisible());
}

TEST_F(FirstRunTraining, StandsOverThePadWhichIsLoadedAndHiddenWhileTheMainWindowIsNotThereYet) {
    Install();
    bool shown = false;
    desk.desktop.speech.OnDisplayUI = [&] {
        shown = true;
        EXPECT_FALSE(desk.desktop.windows.Window("Form5").visible);
        EXPECT_FALSE(desk.MainWindowVisible());
        EXPECT_EQ(Kept(), "1\0"s);
    };
    Start();
    EXPECT_TRUE(shown);
    EXPECT_FALSE(desk.desktop.windows.Window("Form5").visible);
}

TEST_F(FirstRunTraining, ComesOnce) {
    Install();
    Start();
    const std::string left = Kept();

    Desk next;
    next.desktop.registry.Put(kSettings, kTrainingDue, {REG_SZ, left});
    next.Launch();
    next.desktop.RunFor(5s);
    EXPECT_FALSE(Contains(next.Transcript(), "DisplayUI"));
    EXPECT_EQ(next.desktop.registry.Get(kSettings, kTrainingDue)->bytes, left);
}

TEST_F(FirstRunTraining, WithoutTheValueThereIsNoWizardAndNothingIsWritten) {
    const std::string start = Start();
    EXPECT_FALSE(Contains(start, "DisplayUI"));
    EXPECT_FALSE(Contains(start, "RegSetValueExA"));
    EXPECT_EQ(Kept(), "none");
    EXPECT_FALSE(desk.desktop.windows.Exists("Form5"));
}

TEST_F(FirstRunTraining, AnythingButOneIsNoWizardAndNothingIsWritten) {
    for (const std::string& bytes :
         {"0\0"s, "0"s, "1"s, "01\0"s, "1 \0"s, "11\0"s, "yes\0"s, "\0"s}) {
        Desk other;
        other.desktop.registry.Put(kSettings, kTrainingDue, {REG_SZ, bytes});
        other.Launch();
        other.desktop.RunFor(5s);
        const std::string start = other.Transcript();
        EXPECT_FALSE(Contains(start, "DisplayUI")) << bytes;
        EXPECT_FALSE(Contains(start, "RegSetValueExA")) << bytes;
        EXPECT_EQ(other.desktop.registry.Get(kSettings, kTrainingDue)->bytes, bytes);
    }
}

TEST_F(FirstRunTraining, AOneThatIsANumberCountsToo) {
    Leave(REG_DWORD, "\x01\0\0\0"s);
    const std::string start = Start();
    EXPECT_TRUE(Contains(start, Wizard()));
    EXPECT_EQ(Kept(), "0");
}

TEST_F(FirstRunTraining, SettingsThatCannotBeReadAreNoWizard) {
    Install();
    desk.desktop.record.Fail("RegOpenKeyExA", ERROR_ACCESS_DENIED);
    EXPECT_FALSE(Contains(Start(), "DisplayUI"));
    EXPECT_TRUE(desk.MainWindowVisible());
}

TEST_F(FirstRunTraining, SettingsThatCannotBeWrittenLetItComeAgain) {
    Install();
    desk.desktop.record.Fail("RegCreateKeyExA", ERROR_ACCESS_DENIED);
    const std::string start = Start();
    EXPECT_TRUE(Contains(start, Wizard()));
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_EQ(Kept(), "1\0"s);
}

TEST_F(FirstRunTraining, WithoutTheWizardTheErrorIsReportedAndTheProcessEnds) {
    Install();
    desk.desktop.record.Fail("DisplayUI", kAutomationError);
    const std::string start = Start();
    EXPECT_TRUE(Contains(start, "ShowErrorReport 440"));
    EXPECT_FALSE(Contains(start, "CreateSpVoice"));
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(Kept(), "1\0"s);
}

TEST_F(FirstRunTraining, WithoutARecogniserTheLoadFailsThereAndNoLaterStepIsReached) {
    Install();
    desk.desktop.record.Fail("CreateSpSharedRecoContext", kAutomationError);
    const std::string start = Start();
    EXPECT_TRUE(Contains(start, "ShowErrorReport 91"));
    EXPECT_FALSE(Contains(start, "CreateSpVoice"));
    EXPECT_TRUE(desk.desktop.windows.Exists("Form5"));
    EXPECT_TRUE(desk.desktop.runtime.Ended());
    EXPECT_EQ(Kept(), "1\0"s);
}

TEST_F(FirstRunTraining, ACommandHeardMeanwhileFindsNoVoiceAndIsPassedOver) {
    Install();
    desk.desktop.speech.OnDisplayUI = [this] {
        EXPECT_TRUE(desk.desktop.speech.Say("what time is it"));
        desk.desktop.queue.DoEvents();
    };
    const std::string start = Start();
    EXPECT_FALSE(Contains(start, "Speak"));
    EXPECT_FALSE(desk.desktop.runtime.Ended());
    EXPECT_TRUE(desk.MainWindowVisible());
    EXPECT_TRUE(desk.Log().starts_with("1, 0, Recognition,  [Text=what time is it]")) << desk.Log();
}

}  // namespace
}  // namespace corvane
