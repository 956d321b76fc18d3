// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/dictating.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane::engine::testing {
namespace {

/// In small letters and without signs.
std::vector<std::string> WordsIn(const std::string& text) {
    std::string plain;
    for (const char c : text)
        if (std::string_view(".,?!:;\"").find(c) == std::string_view::npos)
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    std::istringstream words(plain);
    return {std::istream_iterator<std::string>(words), {}};
}

/// How many words of one text the other has in the same order, at most: their longest common
/// subsequence.
std::size_t WordsInCommon(const std::string& one, const std::string& other) {
    const std::vector<std::string> rows = WordsIn(one);
    const std::vector<std::string> columns = WordsIn(other);
    std::vector<std::size_t> above(columns.size() + 1);
    for (const std::string& word : rows) {
        std::vector<std::size_t> row{0};
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.push_back(word == columns[i] ? above[i] + 1 : std::max(above[i + 1], row[i]));
        above = std::move(row);
    }
    return above.back();
}

}  // namespace

void StartDictation(ISpeechRecoGrammar& grammar) {
    grammar.CmdSetRuleIdState(0, SGDSInactive);
    grammar.DictationLoad("", SLOStatic);
    grammar.DictationSetState(SGDSActive);
}

std::string TextOf(const std::shared_ptr<ISpeechRecoResult>& result) {
    return result->PhraseInfo()->GetText(0, -1, true);
}

::testing::AssertionResult HasWordsOf(const std::string& wanted, const std::string& written,
                                      double share) {
    const auto count = static_cast<double>(WordsIn(wanted).size());
    if (static_cast<double>(WordsInCommon(wanted, written)) >= share * count)
        return ::testing::AssertionSuccess() << written;
    return ::testing::AssertionFailure() << "written: " << written;
}

::testing::AssertionResult Says(const std::shared_ptr<ISpeechRecoResult>& result,
                                const std::string& wanted, double share) {
    return HasWordsOf(wanted, TextOf(result), share);
}

}  // namespace corvane::engine::testing
