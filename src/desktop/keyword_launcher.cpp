// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/keyword_launcher.h"

#include "runtime/text.h"

namespace corvane {
namespace {

/// Whether the keyword of that length at `pos` ends there. The second half looks one character too
/// far, deliberately: "notepads" passes for the keyword "notepad" at the end of a phrase.
bool EndsAsWord(const std::string& PhraseText, Integer pos, Long length) {
    return Mid(PhraseText, pos + length, 1) == " " || Mid(PhraseText, pos + length + 1, 1).empty();
}

}  // namespace

KeywordLauncher::KeywordLauncher(const KeywordStore& keywords, ILanguageRuntime& runtime)
    : keywords_(keywords), runtime_(runtime) {}

void KeywordLauncher::RunKeywordsIn(const std::string& PhraseText, const ResumeNext& step) const {
    // 16 bits wide, and outside the loop: a place that does not fit leaves the last one standing.
    Integer pos;
    const Long last = keywords_.KeywordNames.UpperBound() - 1;
    for (Long i = 0; i <= last; i += 1) {
        // The first occurrence only; what stands in front of it does not matter.
        step([&] { pos = InStr(1, PhraseText, keywords_.KeywordNames(i)).rep(); });
        if (pos == 0) continue;
        if (step.test([&] { return EndsAsWord(PhraseText, pos, Len(keywords_.KeywordNames(i))); }))
            step([&] { runtime_.Shell(keywords_.KeywordPaths(i), kNormalFocus); });
    }
}

}  // namespace corvane
