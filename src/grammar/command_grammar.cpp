// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "grammar/command_grammar.h"

#include <string>
#include <string_view>

#include "grammar/builtin_rules.h"

namespace corvane {
namespace {

std::string RuleHead(std::string_view name) {
    return "<RULE NAME=\"" + std::string(name) + "\" TOPLEVEL=\"ACTIVE\">";
}

void WriteRule(ITextStream& stream, const BuiltinRule& rule) {
    stream.WriteLine(RuleHead(rule.name));
    std::string_view body = rule.body.substr(1);
    while (!body.empty()) {
        const auto end = body.find('\n');
        stream.WriteLine(std::string(body.substr(0, end)));
        body.remove_prefix(end + 1);
    }
    stream.WriteLine("</RULE>");
}

}  // namespace

CommandGrammar::CommandGrammar(IFileSystemObject& files, const DataPaths& paths)
    : files_(files), paths_(paths) {}

void CommandGrammar::CreateKeywordsXML() {
    files_.DeleteFile(paths_.KeywordsXmlPath);
    const auto stream = files_.CreateTextFile(paths_.KeywordsXmlPath, true);
    stream->WriteLine("<GRAMMAR LANGID=\"409\">");
    for (const BuiltinRule& rule : kBuiltinRules) WriteRule(*stream, rule);
    stream->WriteLine("</GRAMMAR>");
    stream->Close();
}

}  // namespace corvane
