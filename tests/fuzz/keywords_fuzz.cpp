// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as keywords.txt and as keywords.xml: the store and the command grammar read them line
// by line, and what is edited loses nothing but what was to go.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "grammar/command_grammar.h"
#include "grammar/keyword_store.h"
#include "platform/error.h"
#include "require.h"
#include "simulated/simulated_desktop.h"

namespace {

using namespace corvane;
using fuzz::Require;

constexpr const char* kTxt = "/keywords.txt";
constexpr const char* kXml = "/keywords.xml";

std::vector<std::string> Lines(simulated::SimulatedDesktop& desktop, const std::string& path) {
    std::vector<std::string> lines;
    const auto stream = desktop.files.OpenTextFile(path, ForReading, false);
    while (!stream->AtEndOfStream()) lines.push_back(stream->ReadLine());
    return lines;
}

std::size_t Kept(const KeywordList& list, const std::vector<std::string>& lines, bool paths) {
    std::size_t at = 0;
    for (const std::string& line : lines)
        if ((line.find(".exe") != std::string::npos) == paths) {
            Require(list(static_cast<std::int64_t>(at)) == line, "lines are kept in their order");
            ++at;
        }
    Require(list.UpperBound() >= static_cast<std::int64_t>(at), "one empty element ends the list");
    return at;
}

void CheckKeywords(simulated::SimulatedDesktop& desktop, const DataPaths& paths) {
    KeywordStore store(desktop.files, paths);
    store.Reload();
    const auto before = Lines(desktop, kTxt);
    const std::size_t keywords = Kept(store.KeywordNames, before, false);
    Require(keywords + Kept(store.KeywordPaths, before, true) == before.size(),
            "each line is a keyword or a path");
    if (before.empty()) return;

    // The first keyword and its path are removed, with the empty lines that no list shows.
    const std::string keyword = store.KeywordNames(0);
    const std::string path = store.KeywordPaths(0);
    store.RemoveKeywordLines(keyword, path);
    std::vector<std::string> left = before;
    std::erase_if(left, [&](const std::string& line) {
        return line.empty() || line == keyword || line == path;
    });
    Require(Lines(desktop, kTxt) == left, "only those lines are gone");
}

void CheckGrammar(simulated::SimulatedDesktop& desktop, const DataPaths& paths) {
    CommandGrammar grammar(desktop.files, paths);
    std::vector<std::string> left = Lines(desktop, kXml);
    std::erase_if(left,
                  [](const std::string& line) { return line.empty() || line == "</GRAMMAR>"; });
    grammar.AppendKeywordRule("notepad");
    auto after = Lines(desktop, kXml);
    Require(after.size() > left.size() && std::equal(left.begin(), left.end(), after.begin()) &&
                after.back() == "</GRAMMAR>",
            "a rule is appended behind what was there");
    const auto same_rule = [](const std::string& line) {
        return line == "<RULE NAME=\"notepad\" TOPLEVEL=\"ACTIVE\">";
    };
    if (std::any_of(left.begin(), left.end(), same_rule)) return;
    grammar.RemoveKeywordRule("notepad");
    left.emplace_back("</GRAMMAR>");
    Require(Lines(desktop, kXml) == left, "and removed from there");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    simulated::SimulatedDesktop desktop;
    desktop.files.Put(kTxt, bytes);
    desktop.files.Put(kXml, bytes);
    DataPaths paths;
    paths.KeywordsTxtPath = kTxt;
    paths.KeywordsXmlPath = kXml;
    CheckKeywords(desktop, paths);
    CheckGrammar(desktop, paths);
    return 0;
}
