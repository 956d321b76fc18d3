// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/speech_api.h"
#include "runtime/numbers.h"

namespace corvane {

inline constexpr std::string_view kThrownOut = " (THROWN OUT)";

/// The log's line for one recognition, line end included. Text and confidence are fetched from the
/// result; when they can't be, this raises.
[[nodiscard]] std::string RecognitionLine(Long StreamNumber, const Variant& StreamPosition,
                                          const ISpeechRecoResult& Result,
                                          std::string_view suffix = {});

}  // namespace corvane
