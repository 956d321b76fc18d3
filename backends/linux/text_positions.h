// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

/// Text as the system writes it and as Qt's controls hold it. The system: UTF-8, lines end in CR
/// LF, positions count characters, CR LF as two. Qt: UTF-16, a line ends in LF, positions count
/// code units. All positions are from 0; one beyond the end is the end.
namespace corvane::linux_desktop {

/// The characters of UTF-8 text. A byte that is part of none counts as one, U+FFFD.
[[nodiscard]] std::u32string Characters(std::string_view text);

/// Text for a control; CR LF, and a CR or LF alone, end a line.
[[nodiscard]] QString ControlText(std::string_view text);

/// Text for the system; each line end becomes CR LF.
[[nodiscard]] std::string SystemText(const QString& control_text);

/// How long a text is for the system and in a control.
struct TextSize {
    std::int32_t characters = 0;
    int units = 0;
    friend bool operator==(const TextSize&, const TextSize&) = default;
};
[[nodiscard]] TextSize SizeOf(std::string_view text);

/// Where `position` of the system's `text` is in a control that shows it. Between CR and LF is the
/// end of that line.
[[nodiscard]] int ControlPosition(std::string_view text, std::int32_t position);

/// Where `position` of a control's text is in the system's.
[[nodiscard]] std::int32_t SystemPosition(const QString& control_text, int position);

}  // namespace corvane::linux_desktop
