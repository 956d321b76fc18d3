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
/// P and O hold words or exactly one L; an L holds P with words only. Anything else makes it no
/// grammar at all: another element or attribute, stray text, a document type, an empty name,
/// phrase, list, rule or grammar, a name or Id given twice. Raises kAutomationError with line and
/// reason.
[[nodiscard]] Grammar ParseGrammar(std::string_view xml);

/// As ParseGrammar. Raises kFileNotFound when there is no such file, kDeviceIOError when it can't
/// be read.
[[nodiscard]] Grammar LoadGrammar(const std::string& path);

}  // namespace corvane::engine
