// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form2_gauges.h"

#include <string>

namespace corvane {
namespace {

struct AsPropertyValue {
    PropertyValue operator()(bool value) const { return Boolean(value); }
    PropertyValue operator()(std::int32_t value) const { return Long(value); }
    PropertyValue operator()(double value) const { return value; }
    PropertyValue operator()(const StoredFont& font) const {
        return StdFont{std::string(font.name), font.size, font.weight};
    }
};

}  // namespace

void PlaceGauge(bkCProg& gauge, const ControlDescription& control,
                std::span<const StoredProperty> stored) {
    PropertyBag bag;
    for (const auto& property : stored)
        bag.Put(property.key, std::visit(AsPropertyValue(), property.value));
    gauge.ReadProperties(bag);
    gauge.UserControl.SetSize(static_cast<Twips>(control.place.width),
                              static_cast<Twips>(control.place.height));
}

}  // namespace corvane
