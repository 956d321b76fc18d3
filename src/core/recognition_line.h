// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/speech_api.h"
#include "runtime/numbers.h"

namespace corvane {

inline constexpr std::string_view kThrownOut = " (THROWN OUT)";
inline constexpr std::string_view kHypothesisIgnored = " (HYPOTHESIS IGNORED)";

/// The log's line for one result, line end included; `kind` is "Recognition" or "Hypothesis". Text
/// and confidence are fetched from the result; when they can't be, this raises.
[[nodiscard]] std::string ResultLine(Long StreamNumber, const Variant& StreamPosition,
                                     std::string_view kind, const ISpeechRecoResult& Result,
                                     std::string_view suffix = {});

}  // namespace corvane
