// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "support/desk.h"

/// Reading aloud: what is read, which word is marked meanwhile, and how the voice's event interests
/// move.
namespace corvane {
namespace {

using testing::Desk;
using namespace std::chrono_literals;

/// What every accepted command asks of the voice first.
const std::string kAccepted = "voice.EventInterests 512\n";

std::string Reading(const std::string& text) {
    return "voice.EventInterests 548\nSpeak \"" + text + "\" flags=11\n";
}

/// The reading of nothing, which ends at once.
const std::string kReadingOfNothing = Reading("") + "voice.EventInterests 516\n";

class ReadingTest : public ::testing::Test {
protected:
    ReadingTest() { desk.Start(); }

    [[nodiscard]] const simulated::ShownText& Board() const {
        return desk.desktop.windows.Window("Form2").texts.at("Text3");
    }
    /// The marked part of the whiteboard, which holds ASCII here.
    [[nodiscard]] std::string Marked() const {
        return Board().text.substr(static_cast<std::size_t>(Board().start),
                                   static_cast<std::size_t>(Board().length));
    }
    void Write(const std::string& text) {
        desk.desktop.Drive([&] { desk.desktop.windows.Retype("Form2", "Text3", text); });
    }
    void Press(const char* button) {
        desk.desktop.Drive([&] { desk.desktop.windows.Click("Form2", button); });
    }
    void AskForHelp(const char* entry) {
        desk.desktop.Drive([&] { desk.desktop.windows.DoubleClick("Form2", "List1", entry); });
    }
    void Wait(std::chrono::milliseconds span) { desk.desktop.RunFor(span); }
    /// The values that the voice's interests have been given since the last look, in their order.
    std::string Interests() {
        const std::string transcript = desk.Transcript();
        const std::string call = "voice.EventInterests ";
        std::string values;
        for (auto at = transcript.find(call); at != std::string::npos;
             at = transcript.find(call, at + 1))
            values +=
                transcript.substr(at + call.size(), transcript.find('\n', at) - at - call.size()) +
                " ";
        return values;
    }
    /// The other program copies that text when it is told to.
    void OtherProgramCopies(const std::string& text) {
        desk.desktop.runtime.OnSendKeys = [this, text](const std::string& keys) {
            if (keys == "^c") desk.desktop.clipboard.Copy(text);
        };
    }

    Desk desk;
};

TEST_F(ReadingTest, TheReadButtonAsksForWordsAndReadsTheWhiteboard) {
    Write("milk, bread");
    Press("Command2");
    EXPECT_EQ(desk.Transcript(), Reading("milk, bread"));
}

TEST_F(ReadingTest, TheRuleReadsToo) {
    Write("milk, bread");
    desk.Hear("read whiteboard");
    EXPECT_EQ(desk.Transcript(), kAccepted + Reading("milk, bread"));
}

TEST_F(ReadingTest, EachWordIsMarkedWhileItIsSpoken) {
    Write("one two, three");
    Press("Command2");
    Wait(0ms);
    EXPECT_EQ(Marked(), "one");
    Wait(400ms);
    EXPECT_EQ(Marked(), "two");
    Wait(400ms);
    EXPECT_EQ(Marked(), "two");
    Wait(100ms);
    EXPECT_EQ(Marked(), "three");
}

TEST_F(ReadingTest, AfterTheEndTheCaretRestsBehindTheTextAndNothingIsMarked) {
    Write("one two");
    Press("Command2");
    Wait(10s);
    EXPECT_EQ(Board().start, 7);
    EXPECT_EQ(Board().length, 0);
    EXPECT_EQ(Interests(), "548 516 ");
}

TEST_F(ReadingTest, PlacesCountCharactersAndBothSignsOfALineEnd) {
    Write("été\r\nà Paris");
    Press("Command2");
    Wait(500ms);
    EXPECT_EQ(Board().start, 5);
    EXPECT_EQ(Board().length, 1);
    Wait(200ms);
    EXPECT_EQ(Board().start, 7);
    EXPECT_EQ(Board().length, 5);
}

TEST_F(ReadingTest, MarkupOnTheWhiteboardActsAsMarkupAndTheMarkFallsOnItsWord) {
    Write("<emph>now</emph> then");
    Press("Command2");
    EXPECT_EQ(desk.Transcript(), Reading("<emph>now</emph> then"));
    Wait(0ms);
    EXPECT_EQ(Marked(), "now");
    Wait(400ms);
    EXPECT_EQ(Marked(), "then");
}

TEST_F(ReadingTest, AnEmptyWhiteboardIsReadWithoutAMark) {
    Press("Command2");
    EXPECT_EQ(desk.Transcript(), Reading(""));
    Wait(1s);
    EXPECT_EQ(Board().length, 0);
    EXPECT_EQ(Interests(), "516 ");
}

TEST_F(ReadingTest, ASecondReadingCutsOffTheFirstAndTheMarkFollowsIt) {
    Write("alpha beta gamma delta");
    Press("Command2");
    Wait(600ms);
    EXPECT_EQ(Marked(), "beta");
    Press("Command2");
    Wait(0ms);
    EXPECT_EQ(Marked(), "alpha");
    Wait(600ms);
    EXPECT_EQ(Marked(), "beta");
    Wait(10s);
    // One end has come, that of the second: the first would have been taken for it.
    EXPECT_EQ(Interests(), "548 548 516 ");
}

TEST_F(ReadingTest, TheInterestsWalkDownWithEveryEndUntilTheNextCommand) {
    Write("one two three");
    desk.Hear("copy");
    EXPECT_EQ(Interests(), "512 ");
    Press("Command2");
    Wait(10s);
    EXPECT_EQ(Interests(), "548 516 ");
    // At 516 the end of any sentence is told. Its words are not.
    AskForHelp("Time");
    Wait(0ms);
    EXPECT_EQ(Board().length, 0);
    Wait(10s);
    EXPECT_EQ(Interests(), "484 ");
    // 484 holds the bit of words again: a sentence of the help marks the whiteboard.
    AskForHelp("Time");
    Wait(0ms);
    EXPECT_EQ(Marked(), "one ");
    Wait(10s);
    EXPECT_EQ(Board().start, 13);
    EXPECT_EQ(Board().length, 0);
    EXPECT_EQ(Interests(), "452 ");
    AskForHelp("Time");
    Wait(10s);
    EXPECT_EQ(Interests(), "420 ");
    desk.Hear("copy");
    EXPECT_EQ(Interests(), "512 ");
    // At 512 no end is told, so nothing is subtracted.
    AskForHelp("Time");
    Wait(10s);
    EXPECT_EQ(Interests(), "");
}

TEST_F(ReadingTest, TheLevelIsNotToldAt484AndAgainAfterTheNextCommand) {
    const auto level = [&] { return desk.desktop.windows.Window("Form2").texts.at("Text4").text; };
    Write("one");
    Press("Command2");
    Wait(10s);
    AskForHelp("Time");
    Wait(0ms);
    EXPECT_EQ(level(), "40");
    Wait(10s);
    EXPECT_EQ(level(), "0");
    AskForHelp("Time");
    Wait(0ms);
    EXPECT_EQ(level(), "0");
    desk.Hear("copy");
    AskForHelp("Time");
    Wait(0ms);
    EXPECT_EQ(level(), "40");
}

TEST_F(ReadingTest, AReadingFromTheButtonStartsAgainFromAnyInterests) {
    for (int reading = 0; reading < 3; ++reading) {
        Press("Command2");
        Wait(1s);
    }
    EXPECT_EQ(Interests(), "548 516 548 516 548 516 ");
}

TEST_F(ReadingTest, ACommandDuringAReadingLeavesItsLastMarkAndItReadsOn) {
    Write("one two three four");
    desk.Hear("read whiteboard");
    Wait(400ms);
    EXPECT_EQ(Marked(), "two");
    desk.Hear("copy");
    Wait(10s);
    EXPECT_EQ(Marked(), "two");
    EXPECT_EQ(Interests(), "512 548 512 ");
}

TEST_F(ReadingTest, ACommandThatSpeaksCutsTheReadingOff) {
    Write("one two three four five six seven");
    desk.Hear("read whiteboard");
    Wait(400ms);
    desk.Hear("what time is it");
    Wait(10s);
    EXPECT_EQ(Marked(), "two");
    EXPECT_EQ(Interests(), "512 548 512 ");
}

TEST_F(ReadingTest, AChangeOfTheGrammarDuringAReadingEndsItsMarks) {
    Write("one two three four");
    Press("Command2");
    Wait(0ms);
    desk.Hear("disable");
    Wait(10s);
    EXPECT_EQ(Marked(), "one");
    EXPECT_EQ(Interests(), "548 512 512 ");
}

TEST_F(ReadingTest, ClearDuringAReadingEmptiesTheBoxAndTheVoiceReadsOn) {
    Write("one two three four");
    Press("Command2");
    Wait(100ms);
    desk.Transcript();
    Press("Command3");
    EXPECT_EQ(desk.Transcript(), "");  // the voice is asked nothing
    Wait(400ms);
    EXPECT_EQ(Board().length, 0);
    EXPECT_GT(desk.desktop.windows.Window("Form2").ranges.at("ProgressBar2"), 0);
    Wait(10s);
    EXPECT_EQ(Interests(), "516 ");
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(ReadingTest, AWhiteboardThatAPersonShortensMeanwhileIsMarkedAsFarAsItGoes) {
    Write("one two three four");
    Press("Command2");
    Wait(0ms);
    Write("one tw");
    Wait(400ms);
    EXPECT_EQ(Marked(), "tw");
    Wait(400ms);
    EXPECT_EQ(Board().start, 6);
    EXPECT_EQ(Board().length, 0);
    EXPECT_FALSE(desk.desktop.runtime.Ended());
}

TEST_F(ReadingTest, TheLevelOfTheVoiceIsShownAsItComes) {
    desk.Hear("copy");
    AskForHelp("Time");
    Wait(0ms);
    EXPECT_EQ(desk.desktop.windows.Window("Form2").ranges.at("ProgressBar2"), 40);
    EXPECT_EQ(desk.desktop.windows.Window("Form2").texts.at("Text4").text, "40");
    Wait(10s);
    EXPECT_EQ(desk.desktop.windows.Window("Form2").ranges.at("ProgressBar2"), 0);
    EXPECT_EQ(desk.desktop.windows.Window("Form2").texts.at("Text4").text, "0");
}

TEST_F(ReadingTest, ReadAllSelectsCopiesAndReadsTheText) {
    Write("old");
    OtherProgramCopies("the whole letter");
    desk.Hear("read all the text");
    EXPECT_EQ(desk.Transcript(), kAccepted +
                                     "SendKeys ^a wait\nSendKeys ^c wait\nClipboard.GetText\n" +
                                     Reading("the whole letter"));
    EXPECT_EQ(Board().text, "the whole letter");
}

TEST_F(ReadingTest, ReadAllTakesTheClipboardAsItStands) {
    desk.desktop.clipboard.Copy("from yesterday");
    desk.Hear("read all");
    EXPECT_EQ(Board().text, "from yesterday");
    EXPECT_TRUE(desk.Transcript().ends_with(Reading("from yesterday")));
}

TEST_F(ReadingTest, ReadAllWithAnEmptyClipboardEmptiesTheWhiteboardAndSaysNothing) {
    Write("old");
    desk.Hear("read all");
    EXPECT_EQ(Board().text, "");
    EXPECT_TRUE(desk.Transcript().ends_with(kReadingOfNothing));
}

TEST_F(ReadingTest, ReadSelectedCopiesAndReadsWhatIsHighlighted) {
    Write("old");
    OtherProgramCopies("this line");
    desk.Hear("please read the selected text");
    EXPECT_EQ(desk.Transcript(),
              kAccepted + "SendKeys ^c wait\nClipboard.GetText\n" + Reading("this line"));
    EXPECT_EQ(Board().text, "this line");
}

TEST_F(ReadingTest, ReadSelectedReadsTheSameTextTwice) {
    OtherProgramCopies("this line");
    desk.Hear("read selected");
    desk.Hear("read selected");
    EXPECT_TRUE(desk.Transcript().ends_with(Reading("this line")));
}

TEST_F(ReadingTest, ReadSelectedWithNothingHighlightedEmptiesTheWhiteboardAndSaysNothing) {
    Write("old");
    desk.desktop.clipboard.Copy("a password");
    desk.Hear("read selected");
    EXPECT_EQ(Board().text, "");
    EXPECT_EQ(desk.Transcript(), kAccepted + "SendKeys ^c wait\n" + kReadingOfNothing);
}

TEST_F(ReadingTest, AFailingStepOfASpokenReadingIsSkippedAndTheNextOneRuns) {
    struct Fault {
        const char* failing;
        const char* phrase;
        const char* read;
    };
    const Fault kFaults[] = {
        {"SendKeys", "read all", "from before"},
        {"Clipboard.GetText", "read all", "old"},
        {"voice.EventInterests", "read all", "new"},
        {"SendKeys", "read selected", ""},
        {"Clipboard.GetText", "read selected", "old"},
        {"Clipboard.SequenceNumber", "read selected", ""},
        {"voice.EventInterests", "read selected", "new"},
        {"voice.EventInterests", "read whiteboard", "old"},
    };
    for (const auto& [failing, phrase, read] : kFaults) {
        Desk other;
        other.Start();
        other.desktop.clipboard.Copy("from before");
        other.desktop.runtime.OnSendKeys = [&](const std::string& keys) {
            if (keys == "^c") other.desktop.clipboard.Copy("new");
        };
        other.desktop.Drive([&] { other.desktop.windows.Type("Form2", "Text3", "old"); });
        other.desktop.record.Fail(failing, kAutomationError);
        other.Hear(phrase);
        const std::string spoken = "Speak \"" + std::string(read) + "\" flags=11\n";
        EXPECT_NE(other.Transcript().find(spoken), std::string::npos)
            << failing << " in " << phrase;
        EXPECT_FALSE(other.desktop.runtime.Ended()) << failing << " in " << phrase;
    }
}

TEST_F(ReadingTest, AFailingReadingFromTheButtonEndsTheProcess) {
    for (const char* failing : {"voice.EventInterests", "Speak"}) {
        Desk other;
        other.Start();
        other.desktop.record.Fail(failing, kAutomationError);
        other.desktop.Drive([&] { other.desktop.windows.Click("Form2", "Command2"); });
        EXPECT_TRUE(other.desktop.runtime.Ended()) << failing;
    }
}

TEST_F(ReadingTest, AWordOfTheVoiceThatSoundsLikeACommandIsTakenForOne) {
    Write("copy");
    Press("Command2");
    Wait(100ms);
    // Nothing mutes the recogniser while the voice speaks.
    EXPECT_TRUE(desk.Hear("copy"));
    EXPECT_TRUE(desk.Transcript().ends_with("SendKeys ^c wait\n"));
}

}  // namespace
}  // namespace corvane
