// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/spoken_grammar.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string_view>

namespace corvane::simulated {
namespace {

struct Element {
    std::string tag;
    std::map<std::string, std::string> attributes;
    std::string words;
    std::vector<Element> children;
};

std::string Trimmed(std::string_view text) {
    std::string words;
    for (const char c : text) {
        const bool blank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (!blank)
            words += c;
        else if (!words.empty() && words.back() != ' ')
            words += ' ';
    }
    if (words.ends_with(' ')) words.pop_back();
    return words;
}

/// Reads elements, attributes and words; a file that needs more of XML than that counts as
/// malformed.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    std::optional<Element> Document() {
        SkipBlanks();
        auto root = ReadElement();
        SkipBlanks();
        return rest_.empty() ? root : std::nullopt;
    }

private:
    void SkipBlanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size()));
    }
    bool Take(std::string_view token) {
        if (!rest_.starts_with(token)) return false;
        rest_.remove_prefix(token.size());
        return true;
    }
    std::string TakeUntil(std::string_view stops) {
        const auto end = std::min(rest_.find_first_of(stops), rest_.size());
        std::string taken(rest_.substr(0, end));
        rest_.remove_prefix(end);
        return taken;
    }

    std::optional<Element> ReadElement() {
        Element element;
        if (!Take("<")) return std::nullopt;
        element.tag = TakeUntil(" >/");
        for (SkipBlanks(); !Take(">"); SkipBlanks()) {
            const std::string name = TakeUntil("=<> \"");
            if (!Take("=\"")) return std::nullopt;
            element.attributes[name] = TakeUntil("\"<&");
            if (!Take("\"")) return std::nullopt;
        }
        while (!rest_.starts_with("</")) {
            element.words += TakeUntil("<&");
            if (rest_.empty() || rest_.front() == '&') return std::nullopt;
            if (rest_.starts_with("</")) break;
            auto child = ReadElement();
            if (!child) return std::nullopt;
            element.children.push_back(std::move(*child));
        }
        if (!Take("</" + element.tag + ">")) return std::nullopt;
        element.words = Trimmed(element.words);
        return element;
    }

    std::string_view rest_;
};

std::optional<SpokenPart> ReadPart(const Element& element) {
    if (element.tag != "P" && element.tag != "O") return std::nullopt;
    SpokenPart part{element.tag == "O", {}};
    if (element.children.empty()) {
        part.phrases.push_back(element.words);
    } else {
        if (element.children.size() != 1 || element.children[0].tag != "L" ||
            !element.words.empty())
            return std::nullopt;
        for (const Element& member : element.children[0].children) {
            if (member.tag != "P" || !member.children.empty()) return std::nullopt;
            part.phrases.push_back(member.words);
        }
    }
    if (part.phrases.empty() || std::ranges::count(part.phrases, "") > 0) return std::nullopt;
    return part;
}

std::optional<SpokenRule> ReadRule(const Element& element) {
    SpokenRule rule;
    if (element.tag != "RULE" || !element.attributes.contains("NAME") || !element.words.empty())
        return std::nullopt;
    rule.name = element.attributes.at("NAME");
    rule.top_level =
        element.attributes.contains("TOPLEVEL") && element.attributes.at("TOPLEVEL") == "ACTIVE";
    if (element.attributes.contains("ID"))
        rule.id = static_cast<std::int32_t>(
            std::strtol(element.attributes.at("ID").c_str(), nullptr, 10));
    for (const Element& child : element.children) {
        auto part = ReadPart(child);
        if (!part) return std::nullopt;
        rule.parts.push_back(std::move(*part));
    }
    if (rule.name.empty() || rule.parts.empty()) return std::nullopt;
    return rule;
}

std::string Joined(const std::string& said, const std::string& phrase) {
    return said.empty() ? phrase : said + " " + phrase;
}

void Extend(const std::vector<SpokenPart>& parts, std::size_t at, const std::string& said,
            std::vector<std::string>& sayings) {
    if (at == parts.size()) {
        if (!said.empty()) sayings.push_back(said);
        return;
    }
    if (parts[at].optional) Extend(parts, at + 1, said, sayings);
    for (const std::string& phrase : parts[at].phrases)
        Extend(parts, at + 1, Joined(said, phrase), sayings);
}

/// Whether what is left of a phrase can be said by the parts from `at` on.
bool Matches(const std::vector<SpokenPart>& parts, std::size_t at, std::string_view rest) {
    if (at == parts.size()) return rest.empty();
    if (parts[at].optional && Matches(parts, at + 1, rest)) return true;
    return std::ranges::any_of(parts[at].phrases, [&](const std::string& phrase) {
        if (!rest.starts_with(phrase)) return false;
        const std::string_view behind = rest.substr(phrase.size());
        if (behind.empty()) return Matches(parts, at + 1, behind);
        return behind.front() == ' ' && Matches(parts, at + 1, behind.substr(1));
    });
}

}  // namespace

bool SpokenRule::Accepts(const std::string& phrase) const {
    return !phrase.empty() && Matches(parts, 0, phrase);
}

std::vector<std::string> SpokenRule::Sayings() const {
    std::vector<std::string> sayings;
    Extend(parts, 0, {}, sayings);
    return sayings;
}

std::optional<std::vector<SpokenRule>> ParseGrammar(const std::string& text) {
    const auto root = Reader(text).Document();
    if (!root || root->tag != "GRAMMAR" || !root->words.empty()) return std::nullopt;
    std::vector<SpokenRule> rules;
    for (const Element& element : root->children) {
        auto rule = ReadRule(element);
        if (!rule) return std::nullopt;
        if (std::ranges::find(rules, rule->name, &SpokenRule::name) != rules.end())
            return std::nullopt;
        rules.push_back(std::move(*rule));
    }
    return rules;
}

}  // namespace corvane::simulated
