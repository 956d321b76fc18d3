// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "gauge/bkcprog.h"
#include "platform/controls.h"

/// What the main window keeps of its two gauges; all else is a gauge's default.
namespace corvane {

struct StoredFont {
    std::string_view name;
    double size = 0;  ///< points
    std::int32_t weight = 400;
};

struct StoredProperty {
    std::string_view key;
    std::variant<bool, std::int32_t, double, StoredFont> value;
};

inline constexpr StoredFont kGaugeFont{"MS Sans Serif", 8.25, 400};

inline constexpr auto kGauge1 = std::to_array<StoredProperty>({
    {"_extentx", 2619},  // 1/100 mm
    {"_extenty", 2328},
    {"startcolor", 0x0000FF},
    {"endcolor", 0x00FF00},
    {"textcolor", 0},
    {"showvalue", true},
    {"textshadow", true},
    {"showvalueaspercent", true},
    {"ycenter", 660.0},
    {"radius", 645.0},
    {"font", kGaugeFont},
    {"usemask", true},
    {"automask", true},
});

inline constexpr auto kGauge2 = std::to_array<StoredProperty>({
    {"_extentx", 2619},
    {"_extenty", 2328},
    {"startcolor", 0xFFFFFF},
    {"midcolor", 0xFF0000},
    {"endcolor", 0xC000C0},
    {"textcolor", 0},
    {"showvalue", true},
    {"textshadow", true},
    {"showvalueaspercent", true},
    {"ycenter", 660.0},
    {"radius", 645.0},
    {"font", kGaugeFont},
    {"usemask", true},
    {"automask", true},
});

/// Loads the gauge and gives it the size of its place.
void PlaceGauge(bkCProg& gauge, const ControlDescription& control,
                std::span<const StoredProperty> stored);

}  // namespace corvane
