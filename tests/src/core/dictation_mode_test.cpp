// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/dictation_mode.h"

#include <gtest/gtest.h>

#include "runtime/text.h"
#include "simulated/simulated_context.h"
#include "support/dictation_desk.h"

namespace corvane {
namespace {

using testing::DictationDesk;
using testing::kCommandsAgain;
using testing::kKeywordsXml;
using testing::PadLine;

const std::string kAccepted = "voice.EventInterests 512\n";
const std::string kDictationOn =
    "CmdSetRuleIdState 0 0\n"
    "DictationLoad \"\" 0\n"
    "DictationSetState 1\n";
/// Printing a text that fits one page, the dialog included.
const std::string kOnePagePrinted =
    "AskForPrinter 264\n"
    "Printer.Print \" \"\n"
    "Printer.ScaleMode 1\n"
    "FormatRange draw 1080,1200,10440,14160 of 0,0,11520,15360 from 0 to -1\n"
    "Printer.EndDoc\n"
    "FreeLayout\n";

TEST(DictationMode, ThePadIsShownBehindTheStartAndItsTextTakesTheFocus) {
    DictationDesk desk;
    desk.Start();
    desk.desktop.speech.Level(60);
    desk.Hear("dictation pad");
    EXPECT_EQ(desk.Transcript(), kAccepted + kDictationOn + "Show Form5\nSetFocus txtSpeech\n");
    EXPECT_EQ(desk.desktop.windows.Window("Form2").ranges.at("ProgressBar1"), 0);
    EXPECT_TRUE(desk.PadVisible());
    EXPECT_FALSE(desk.Pad().modal);
    EXPECT_EQ(desk.Pad().focus, "txtSpeech");
    // The command itself is in the main window's log, not in the pad's.
    EXPECT_EQ(desk.Log(), PadLine("dictation pad"));
    EXPECT_EQ(desk.PadLog().text, "");
}

TEST(DictationMode, TheSameContextStaysInUseWhenDictationStarts) {
    DictationDesk desk;
    desk.Start();
    const auto before = desk.desktop.speech.Contexts();
    desk.Hear("dictation pad");
    EXPECT_EQ(desk.desktop.speech.Contexts(), before);
}

TEST(DictationMode, DictateStartsWithoutThePad) {
    DictationDesk desk;
    desk.Start();
    desk.desktop.speech.Level(60);
    desk.Hear("dictation");
    EXPECT_EQ(desk.Transcript(), kAccepted + kDictationOn);
    EXPECT_EQ(desk.desktop.windows.Window("Form2").ranges.at("ProgressBar1"), 0);
    EXPECT_FALSE(desk.desktop.windows.Exists("Form5"));
}

TEST(DictationMode, AKeywordInTheCommandThatStartsItIsStillLookedFor) {
    DictationDesk desk;
    desk.Teach("dictation", "/recorder.exe");
    desk.desktop.files.Put(kKeywordsXml, testing::BuiltinGrammar());
    desk.Start();
    desk.Hear("dictation pad");
    EXPECT_EQ(desk.desktop.runtime.Started(), std::vector<std::string>{"/recorder.exe"});
}

TEST(DictationMode, AnEngineThatCannotDictateLeavesThePadOpenAndTheCommandsOff) {
    DictationDesk desk;
    desk.Start();
    desk.desktop.record.Fail("DictationLoad", kAutomationError);
    desk.Hear("dictation pad");
    EXPECT_TRUE(desk.PadVisible());
    EXPECT_FALSE(desk.Hear("yes"));
    EXPECT_FALSE(desk.desktop.runtime.Ended());
    desk.ClosePadByFrame();
    EXPECT_TRUE(desk.HearsCommandsAlone());
}

struct Phrase {
    const char* said;
    std::string document;  ///< behind "hello "
    std::string calls;
    std::string log;        ///< behind the line of "hello"
    std::string scratched;  ///< the document when "scratch that" follows
};

TEST(DictationMode, EachPhraseInThePad) {
    const Phrase kPhrases[] = {
        {"print page", "hello print page ", kOnePagePrinted,
         PadLine("print page") + PadLine("print page"), "hello "},
        {"delete", "hello ", "SendKeys {BS} wait\n", PadLine("delete"), ""},
        {"train that", "hello ",
         "InputBox \"Enter a sentence\" \"Training\"\n"
         "DisplayUI PAD \"Corvane --Training\" UserTraining \"\"\n",
         PadLine("train that"), ""},
        {"\r", "hello \r\n", "", PadLine("\r"), "he"},
        {"clear everything", "", "", PadLine("clear everything"), ""},
        {"scratch that", "", "", PadLine("scratch that"), ""},
        {"dear sister", "hello dear sister ", "", PadLine("dear sister"), "hello "},
        // Nothing else is a command here.
        {"close corvane", "hello close corvane ", "", PadLine("close corvane"), "hello "},
        {"hide corvane", "hello hide corvane ", "", PadLine("hide corvane"), "hello "},
        {"\r\n", "hello \r\n ", "", PadLine("\r\n"), "hello "},
        {"print page now", "hello print page now ", "", PadLine("print page now"), "hello "},
    };
    for (const Phrase& phrase : kPhrases) {
        DictationDesk desk;
        desk.OpenPad();
        desk.Hear("hello");
        EXPECT_EQ(desk.Document().text, "hello ");
        EXPECT_EQ(desk.Transcript(), "");
        desk.Hear(phrase.said);
        EXPECT_EQ(desk.Document().text, phrase.document) << phrase.said;
        std::string calls = phrase.calls;
        if (const auto at = calls.find("PAD"); at != std::string::npos)
            calls.replace(at, 3, std::to_string(desk.Pad().handle));
        EXPECT_EQ(desk.Transcript(), calls) << phrase.said;
        EXPECT_EQ(desk.PadLog().text, PadLine("hello") + phrase.log) << phrase.said;
        EXPECT_EQ(desk.PadLog().start, Len(desk.PadLog().text).rep()) << phrase.said;
        desk.Hear("scratch that");
        EXPECT_EQ(desk.Document().text, phrase.scratched) << phrase.said;
    }
}

TEST(DictationMode, EachPhraseIntoTheFocus) {
    const std::string kFiveAndOne = "{BS}{BS}{BS}{BS}{BS}{BS}";
    const struct {
        const char* said;
        std::string calls;  ///< behind "hello "
        std::string log;
        std::string scratched;  ///< the keys of a "scratch that" that follows
    } kPhrases[] = {
        {"print page", "SendKeys ^p wait\n", PadLine("print page"), kFiveAndOne},
        {"delete", "SendKeys {BS} wait\n", PadLine("delete"), kFiveAndOne},
        {"train that",
         "InputBox \"Enter a sentence\" \"Training\"\n"
         "DisplayUI PAD \"Corvane --Training\" UserTraining \"\"\n",
         PadLine("train that"), kFiveAndOne},
        {"\r", "SendKeys {ENTER} wait\n", PadLine("\r"), kFiveAndOne},
        {"clear everything", "SendKeys " + kFiveAndOne + " wait\n", PadLine("clear everything"),
         ""},
        {"scratch that", "SendKeys " + kFiveAndOne + " wait\n", PadLine("scratch that"), ""},
        {"a b", "SendKeys a b  wait\n", PadLine("a b"), "{BS}{BS}{BS}{BS}"},
        {"50%", "SendKeys 50{%}  wait\n", PadLine("50%"), "{BS}{BS}{BS}{BS}"},
        {"no", "SendKeys no  wait\n", PadLine("no"), "{BS}{BS}{BS}"},
    };
    for (const auto& phrase : kPhrases) {
        DictationDesk desk;
        desk.DictateIntoFocus();
        desk.Hear("hello");
        EXPECT_EQ(desk.Transcript(), "SendKeys hello  wait\n");
        desk.Hear(phrase.said);
        std::string calls = phrase.calls;
        if (const auto at = calls.find("PAD"); at != std::string::npos)
            calls.replace(at, 3, std::to_string(desk.Pad().handle));
        EXPECT_EQ(desk.Transcript(), calls) << phrase.said;
        EXPECT_EQ(desk.PadLog().text, PadLine("hello") + phrase.log) << phrase.said;
        EXPECT_EQ(desk.Document().text, "") << phrase.said;
        EXPECT_FALSE(desk.PadVisible()) << phrase.said;
        desk.Hear("scratch that");
        EXPECT_EQ(desk.Transcript(),
                  phrase.scratched.empty() ? "" : "SendKeys " + phrase.scratched + " wait\n")
            << phrase.said;
    }
}

TEST(DictationMode, ANewRecogniserEndsDictationAndLeavesThePadOpen) {
    DictationDesk desk;
    desk.Start();
    desk.HearAll({"add program", "dictation pad", "one"});
    desk.AddProgram("paper", "/paper.exe");
    EXPECT_TRUE(desk.PadVisible());
    EXPECT_TRUE(desk.HearsCommandsAlone());
    EXPECT_EQ(desk.Document().text, "one ");
    EXPECT_EQ(desk.PadLog().text, PadLine("one"));
    // The open pad takes dictation up again with its text as it stands.
    desk.HearAll({"dictation pad", "two"});
    EXPECT_EQ(desk.Document().text, "one two ");
}
}  // namespace
}  // namespace corvane
