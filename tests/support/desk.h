// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "core/application.h"
#include "simulated/simulated_desktop.h"

namespace corvane::testing {

/// The whole system on a simulated desktop, with a person in front of it.
class Desk {
public:
    /// Lays the built-in command grammar, the grammars of the quiet mode and of the calendar, and
    /// the given keywords.txt beside the program.
    explicit Desk(const std::string& keywords_txt = {});

    simulated::SimulatedDesktop desktop;

    /// The process entry, and no time passes behind it.
    void Launch();
    /// Starts the program and waits until the main window has taken the splash's place.
    void Start();
    /// Says a phrase and lets the system act on it. Whether anything listened for it.
    bool Hear(const std::string& phrase, SpeechEngineConfidence confidence = SECHighConfidence);
    /// The engine claims to have heard the phrase as that rule.
    void HearAs(const std::string& phrase, const std::string& rule,
                SpeechEngineConfidence confidence = SECHighConfidence);

    /// Adds the rules of user keywords to the command grammar.
    void Teach(const std::string& keyword, const std::string& program);

    [[nodiscard]] std::string Log() const;
    /// Calls since the last look, without their times.
    std::string Transcript();
    /// Whether the main window can be seen.
    [[nodiscard]] bool MainWindowVisible() const;

private:
    Application application_{desktop.AsPlatform()};
};

inline constexpr const char* kKeywordsTxt = "/opt/corvane/keywords.txt";
inline constexpr const char* kKeywordsXml = "/opt/corvane/keywords.xml";
inline constexpr const char* kQuietXml = "/opt/corvane/quiet.xml";
inline constexpr const char* kCalendarXml = "/opt/corvane/calendar.xml";

/// A grammar of the given rules' texts.
[[nodiscard]] std::string GrammarOf(const std::string& rules);
/// A rule that is said by just its phrase.
[[nodiscard]] std::string SimpleRule(const std::string& name, const std::string& phrase);
/// The rule of a user keyword.
[[nodiscard]] std::string KeywordRule(const std::string& keyword);
/// The built-in command grammar as the golden file has it.
[[nodiscard]] std::string BuiltinGrammar();
/// The bytes of a file of the project, by its path from the project's folder.
[[nodiscard]] std::string ProjectFile(const std::string& path);

}  // namespace corvane::testing
