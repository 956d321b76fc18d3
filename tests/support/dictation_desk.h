// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "support/desk.h"

namespace corvane::testing {

/// A desk at which somebody dictates.
class DictationDesk : public Desk {
public:
    using Desk::Desk;

    /// Dictation with the pad open for it.
    void OpenPad() {
        Start();
        Hear("start dictation pad");
        Transcript();
    }
    /// Dictation into whatever window has the focus.
    void DictateIntoFocus() {
        Start();
        Hear("start dictation");
        Transcript();
    }
    void HearAll(const std::vector<std::string>& phrases) {
        for (const std::string& phrase : phrases) Hear(phrase);
    }

    [[nodiscard]] const simulated::ShownWindow& Pad() const {
        return desktop.windows.Window("Form5");
    }
    [[nodiscard]] const simulated::ShownText& Document() const {
        return Pad().texts.at("txtSpeech");
    }
    [[nodiscard]] const simulated::ShownText& PadLog() const { return Pad().texts.at("Text1"); }
    [[nodiscard]] bool PadVisible() const {
        return desktop.windows.Exists("Form5") && Pad().visible;
    }
    /// Whether commands are listened for again, and nothing else.
    [[nodiscard]] bool HearsCommandsAlone() { return Hear("yes") && !Hear("no command at all"); }
    /// Adds a keyword in the open Add Programs window, which makes a new recogniser.
    void AddProgram(const std::string& keyword, const std::string& program) {
        desktop.Drive([&] {
            desktop.windows.Type("Form1", "Text1", keyword);
            desktop.windows.Type("Form1", "text2", program);
            desktop.windows.Click("Form1", "Command2");
        });
    }
    void ClickInPad(const std::string& button) {
        desktop.Drive([&] { desktop.windows.Click("Form5", button); });
    }
    void ClosePadByFrame() {
        desktop.Drive([&] { desktop.windows.CloseByFrame("Form5"); });
    }
};

/// The pad's line for a phrase.
inline std::string PadLine(const std::string& phrase, const std::string& confidence = "1") {
    return "1, 0, Recognition,  [Text=" + phrase + "] [Confidence=" + confidence + "]\r\n";
}

/// What every init_rec with the command grammar asks of the engine.
inline const std::string kCommandsAgain =
    "CreateSpSharedRecoContext\n"
    "CmdLoadFromFile /opt/corvane/keywords.xml 1\n"
    "CmdSetRuleIdState 0 1\n"
    "rc.EventInterests 66608\n"
    "voice.EventInterests 512\n";

}  // namespace corvane::testing
