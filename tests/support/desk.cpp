// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/desk.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace corvane::testing {

Desk::Desk(const std::string& keywords_txt) {
    desktop.files.Put(kKeywordsTxt, keywords_txt);
    desktop.files.Put(kKeywordsXml, BuiltinGrammar());
    desktop.files.Put(kQuietXml, ProjectFile("data/quiet.xml"));
    desktop.files.Put(kCalendarXml, ProjectFile("data/calendar.xml"));
}

void Desk::Launch() {
    desktop.Drive([this] { application_.Run(); });
}

void Desk::Start() {
    Launch();
    desktop.RunFor(std::chrono::seconds(5));
    desktop.record.Clear();
}

bool Desk::Hear(const std::string& phrase, SpeechEngineConfidence confidence) {
    const bool heard = desktop.speech.Say(phrase, confidence);
    desktop.RunFor({});
    return heard;
}

void Desk::HearAs(const std::string& phrase, const std::string& rule,
                  SpeechEngineConfidence confidence) {
    desktop.speech.Claim(phrase, rule, confidence);
    desktop.RunFor({});
}

void Desk::Teach(const std::string& keyword, const std::string& program) {
    auto& files = desktop.files;
    files.Put(kKeywordsTxt, *files.Bytes(kKeywordsTxt) + keyword + "\r\n" + program + "\r\n");
    std::string grammar = *files.Bytes(kKeywordsXml);
    grammar.insert(grammar.rfind("</GRAMMAR>"), KeywordRule(keyword));
    files.Put(kKeywordsXml, std::move(grammar));
    desktop.runtime.Install(program);
}

std::string Desk::Log() const {
    return desktop.windows.Window("Form2").texts.at("Text1").text;
}

std::string Desk::Transcript() {
    std::istringstream lines(desktop.record.Transcript());
    std::string transcript;
    for (std::string line; std::getline(lines, line); transcript += line + "\n")
        if (line.starts_with("t=")) line.erase(0, line.find(' ') + 1);
    desktop.record.Clear();
    return transcript;
}

bool Desk::MainWindowVisible() const {
    return desktop.windows.Exists("Form2") && desktop.windows.Window("Form2").visible;
}

std::string GrammarOf(const std::string& rules) {
    return "<GRAMMAR LANGID=\"409\">\r\n" + rules + "</GRAMMAR>\r\n";
}

std::string SimpleRule(const std::string& name, const std::string& phrase) {
    return "<RULE NAME=\"" + name + "\" TOPLEVEL=\"ACTIVE\">\r\n   <P>" + phrase +
           "</P>\r\n</RULE>\r\n";
}

std::string KeywordRule(const std::string& keyword) {
    return "<RULE NAME=\"" + keyword +
           "\" TOPLEVEL=\"ACTIVE\">\r\n"
           "<O><L><P>Please</P><P>Computer</P><P>Will you</P></L></O>\r\n"
           "<O><L><P>run</P><P>execute</P><P>load</P></L></O>\r\n"
           "<P>" +
           keyword + "</P>\r\n<O>please</O>\r\n</RULE>\r\n";
}

std::string BuiltinGrammar() {
    return ProjectFile("tests/golden/keywords_builtin.xml");
}

std::string ProjectFile(const std::string& path) {
    std::ifstream file(std::string(CORVANE_PROJECT_FOLDER) + "/" + path, std::ios::binary);
    if (!file) throw std::runtime_error("missing project file: " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace corvane::testing
