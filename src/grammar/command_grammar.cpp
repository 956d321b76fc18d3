// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/command_grammar.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "grammar/builtin_rules.h"

namespace corvane {
namespace {

std::string RuleHead(std::string_view name) {
    return "<RULE NAME=\"" + std::string(name) + "\" TOPLEVEL=\"ACTIVE\">";
}

constexpr std::string_view kRuleEnd = "</RULE>";
constexpr std::string_view kGrammarEnd = "</GRAMMAR>";

/// What stands between head and end of a user's rule, around its keyword. The indentation is data.
constexpr std::array<std::string_view, 14> kBeforeKeyword{
    "      <O>",
    "          <L>",
    "               <P>Please</P>",
    "               <P>Computer</P>",
    "               <P>Will you</P>",
    "          </L>",
    "      </O>",
    "      <O>",
    "          <L>",
    "               <P>run</P>",
    "               <P>execute</P>",
    "               <P>load</P>",
    "          </L>",
    "      </O>",
};

void WriteUserRule(ITextStream& stream, const std::string& keyword) {
    stream.WriteLine(RuleHead(keyword));
    for (const std::string_view line : kBeforeKeyword) stream.WriteLine(std::string(line));
    stream.WriteLine("      <P>" + keyword + "</P>");
    stream.WriteLine("      <O>please</O>");
    stream.WriteLine(std::string(kRuleEnd));
}

void WriteRule(ITextStream& stream, const BuiltinRule& rule) {
    stream.WriteLine(RuleHead(rule.name));
    std::string_view body = rule.body.substr(1);
    while (!body.empty()) {
        const auto end = body.find('\n');
        stream.WriteLine(std::string(body.substr(0, end)));
        body.remove_prefix(end + 1);
    }
    stream.WriteLine(std::string(kRuleEnd));
}

}  // namespace

CommandGrammar::CommandGrammar(IFileSystemObject& files, const DataPaths& paths)
    : files_(files), paths_(paths) {}

void CommandGrammar::CreateKeywordsXML() {
    files_.DeleteFile(paths_.KeywordsXmlPath);
    const auto stream = files_.CreateTextFile(paths_.KeywordsXmlPath, true);
    stream->WriteLine("<GRAMMAR LANGID=\"409\">");
    for (const BuiltinRule& rule : kBuiltinRules) WriteRule(*stream, rule);
    stream->WriteLine(std::string(kGrammarEnd));
    stream->Close();
}

void CommandGrammar::AppendKeywordRule(const std::string& keyword) {
    const auto lines = ReadLines();
    const auto stream = files_.CreateTextFile(paths_.KeywordsXmlPath, true);
    for (const std::string& line : lines)
        if (!line.empty() && line != kGrammarEnd) stream->WriteLine(line);
    WriteUserRule(*stream, keyword);
    stream->WriteLine(std::string(kGrammarEnd));
}

void CommandGrammar::RemoveKeywordRule(const std::string& keyword) {
    const auto lines = ReadLines();
    const std::string target = RuleHead(keyword);
    // Both stay 0 when the rule is not there, which then cuts line 0.
    std::size_t first = 0;
    std::size_t last = 0;
    bool inside = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] == target) {
            inside = true;
            first = i;
        }
        if (lines[i] == kRuleEnd && inside) {
            last = i;
            inside = false;
        }
    }
    const auto stream = files_.CreateTextFile(paths_.KeywordsXmlPath, true);
    for (std::size_t i = 0; i < first; ++i) stream->WriteLine(lines[i]);
    for (std::size_t i = last + 1; i < lines.size(); ++i) stream->WriteLine(lines[i]);
    stream->Close();
}

std::vector<std::string> CommandGrammar::ReadLines() const {
    const auto stream = files_.OpenTextFile(paths_.KeywordsXmlPath, ForReading, false);
    std::vector<std::string> lines;
    while (!stream->AtEndOfStream()) lines.push_back(stream->ReadLine());
    stream->Close();
    return lines;
}

}  // namespace corvane
