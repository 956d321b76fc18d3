// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/speech_api.h"
#include "runtime/numbers.h"

/// Text is UTF-8. Lengths and positions count characters (code points), positions from 1. A byte
/// that is no part of a well-formed character counts as one character, so that no file content is
/// lost.
namespace corvane {

inline constexpr std::string_view kCrLf = "\r\n";

[[nodiscard]] Long Len(std::string_view text);

/// The first `length` characters, or all where there are fewer. A negative length raises
/// kInvalidProcedureCall.
[[nodiscard]] std::string Left(std::string_view text, Long length);

/// `length` characters from position `start` on, as many as there are; empty beyond the end. A
/// start below 1 or a negative length raises kInvalidProcedureCall.
[[nodiscard]] std::string Mid(std::string_view text, Long start, Long length);

/// Position of the first occurrence of `sought` at or after `start`, compared exactly; 0 if there
/// is none. An empty `sought` is found at `start` as long as that lies within the text. A start
/// below 1 raises kInvalidProcedureCall.
[[nodiscard]] Long InStr(Long start, std::string_view text, std::string_view sought);

/// The text with its letters A to Z in lower case. Others stay: a file's name is found again
/// whatever the case of those 26, and of no more.
[[nodiscard]] std::string LCase(std::string_view text);

/// The text with its letters a to z in capitals; others stay.
[[nodiscard]] std::string UCase(std::string_view text);

/// The last character; empty for an empty text.
[[nodiscard]] std::string LastCharacter(std::string_view text);

/// The character of that code, 0 to 255; any other raises kInvalidProcedureCall.
[[nodiscard]] std::string Chr(Long code);

/// A variant as text; an empty one is the empty text.
[[nodiscard]] std::string CStr(const Variant& value);

}  // namespace corvane
