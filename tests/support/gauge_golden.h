// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace corvane::testing {

/// A gauge's stored properties and the canvas calls that it makes of them.
struct GaugeDrawingCase {
    std::string properties;  ///< "99x88 Span=270 Border=false": the size in pixels, then by keys
    std::string calls;
};

/// A file of such cases: each begins with a line "= " and its properties, then come the calls, one
/// a line, a spoke's on the same line behind " | ".
[[nodiscard]] std::vector<GaugeDrawingCase> ReadGaugeDrawings(const std::string& text);
[[nodiscard]] std::string WriteGaugeDrawings(const std::vector<GaugeDrawingCase>& cases);

/// The calls that a gauge makes which is loaded from those properties and then sized; the last line
/// tells the number of the error if one ended the drawing.
[[nodiscard]] std::string CallsOfGauge(const std::string& properties);

}  // namespace corvane::testing
