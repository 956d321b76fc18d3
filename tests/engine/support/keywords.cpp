// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/keywords.h"

#include <array>
#include <fstream>
#include <iterator>
#include <random>
#include <set>

namespace corvane::engine::testing {
namespace {

constexpr std::array kOnsets{"b", "d", "f", "g", "k",  "l",  "m",  "n",  "p",  "r",  "s",
                             "t", "v", "w", "z", "br", "st", "kl", "tr", "sh", "ch", "pl"};
constexpr std::array kVowels{"a", "e", "i", "o", "u", "ee", "oo", "ay", "ar", "or"};
constexpr std::array kCodas{"", "", "n", "m", "l", "r", "k", "t", "s", "x"};

// Not a standard distribution: those give other words on other libraries.
template <typename List>
const char* OneOf(const List& list, std::mt19937& random) {
    return list[random() % list.size()];
}

}  // namespace

std::vector<std::string> MadeUpKeywords(std::size_t count, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::set<std::string> known;
    std::vector<std::string> keywords;
    while (keywords.size() < count) {
        std::string keyword;
        const std::size_t syllables = 2 + random() % 2;
        for (std::size_t i = 0; i < syllables; ++i) {
            keyword += OneOf(kOnsets, random);
            keyword += OneOf(kVowels, random);
            keyword += OneOf(kCodas, random);
        }
        if (known.insert(keyword).second) keywords.push_back(keyword);
    }
    return keywords;
}

std::string KeywordRule(const std::string& keyword) {
    return R"(<RULE NAME=")" + keyword +
           "\" TOPLEVEL=\"ACTIVE\">\r\n"
           "      <O>\r\n          <L>\r\n               <P>Please</P>\r\n"
           "               <P>Computer</P>\r\n               <P>Will you</P>\r\n"
           "          </L>\r\n      </O>\r\n"
           "      <O>\r\n          <L>\r\n               <P>run</P>\r\n"
           "               <P>execute</P>\r\n               <P>load</P>\r\n"
           "          </L>\r\n      </O>\r\n      <P>" +
           keyword + "</P>\r\n      <O>please</O>\r\n</RULE>\r\n";
}

std::string CommandsWith(const std::vector<std::string>& keywords) {
    std::ifstream file(CORVANE_PROJECT_FOLDER "/data/keywords.xml", std::ios::binary);
    std::string grammar{std::istreambuf_iterator<char>(file), {}};
    grammar.erase(grammar.rfind("</GRAMMAR>"));
    for (const std::string& keyword : keywords) grammar += KeywordRule(keyword);
    return grammar + "</GRAMMAR>\r\n";
}

}  // namespace corvane::engine::testing
