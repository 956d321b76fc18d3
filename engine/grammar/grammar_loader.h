// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "engine/grammar/grammar.h"

namespace corvane::engine {

/// Reads a grammar in its XML form:
///
///     <GRAMMAR LANGID="409">                     LANGID hexadecimal, US English only
///       <RULE NAME="..." TOPLEVEL="ACTIVE">      or "INACTIVE"; also ID="n", a decimal from 1 up
///         <P>words</P>                           must be said
///         <O><L> <P>words</P> ... </L></O>       one of the list, or nothing
///
/// P and O hold words or exactly one L; an L holds P with words only. A comment or an XML
/// declaration may stand beside them. Anything else makes it no grammar at all, never half of one:
/// another element or attribute, stray text, a document type, a processing instruction, an empty
/// name, phrase, list, rule or grammar, a name or Id given twice, or more than GrammarLimits.
/// Raises kAutomationError with line and reason.
[[nodiscard]] Grammar ParseGrammar(std::string_view xml);

/// As ParseGrammar. Raises kFileNotFound when there is no regular file of this name, and
/// kDeviceIOError when it can't be read. No more of it is read than may be in a grammar.
[[nodiscard]] Grammar LoadGrammar(const std::string& path);

/// Far beyond what anyone can remember to say, and so much that to load it, to compile it and to
/// search it stay bounded: a second on the loop's thread, a few on the listening one, 300 MB.
struct GrammarLimits {
    static constexpr std::size_t kBytes = 8 << 20;
    static constexpr std::size_t kRules = 12'000;
    static constexpr std::size_t kElements = 16;    ///< of one rule
    static constexpr std::size_t kWords = 200'000;  ///< of phrases that are short enough to be said
    static constexpr int kStates = 20'000;          ///< of its graph
    static constexpr int kArcs = 25'000;            ///< of its graph
};

}  // namespace corvane::engine
