// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "grammar/keyword_store.h"
#include "platform/language_runtime.h"
#include "runtime/failure.h"

namespace corvane {

/// Starts the programs whose keywords occur in a phrase.
class KeywordLauncher {
public:
    KeywordLauncher(const KeywordStore& keywords, ILanguageRuntime& runtime);

    /// Goes through all keywords in the order of their file; each one found starts its program. One
    /// that can't be started is passed over in the caller's regime.
    void RunKeywordsIn(const std::string& PhraseText, const ResumeNext& step) const;

private:
    const KeywordStore& keywords_;
    ILanguageRuntime& runtime_;
};

}  // namespace corvane
