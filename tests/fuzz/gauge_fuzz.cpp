// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any stored properties of a gauge: reading and drawing them raises errors of the system or none,
// and what is saved is saved alike again.

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>

#include "gauge/bkcprog.h"
#include "gauge/gauge_members.h"
#include "platform/error.h"
#include "require.h"
#include "simulated/simulated_desktop.h"

namespace {

using namespace corvane;
using fuzz::Require;

PropertyValue SomeValue(FuzzedDataProvider& data, const Picture& picture) {
    switch (data.ConsumeIntegralInRange(0, 7)) {
        case 0:
            return {};
        case 1:
            return Boolean(data.ConsumeBool());
        case 2:
            return Integer(data.ConsumeIntegral<std::int16_t>());
        case 3:
            return Long(data.ConsumeIntegral<std::int32_t>());
        case 4:
            return Long(data.ConsumeIntegralInRange<std::int32_t>(-1000, 1000));
        case 5:
            return data.ConsumeFloatingPoint<double>();
        case 6:
            return StdFont{.Name = data.ConsumeRandomLengthString(8)};
        default:
            return picture;
    }
}

/// A turn has 360 degrees; drawings that go round much more often take their time, as they are
/// asked to.
bool DrawsForever(const bkCProg& gauge) {
    constexpr double kMostDegrees = 3600;
    const double range = double{1} * gauge.Max().rep() - gauge.Min().rep();
    if (range == 0) return false;
    const double span = gauge.Span().rep();
    const double share = (double{1} * gauge.Value().rep() - gauge.Min().rep()) / range;
    const double step = double{gauge.TickFrequency()} / range * span;
    return std::abs(span) > kMostDegrees || std::abs(span * share) > kMostDegrees ||
           !(std::abs(step) > 0.1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    simulated::SimulatedDesktop desktop;
    const auto shown = simulated::MakeShownControl(desktop.gdi, 15, 15);
    bkCProg gauge(std::make_unique<simulated::ControlPlace>(desktop.gdi, shown, 4001), desktop.gdi,
                  desktop.user32);
    gauge.InitProperties();
    const Picture picture = gauge.UserControl.Host().LoadPicture("a picture");

    PropertyBag bag;
    while (data.remaining_bytes() > 0) {
        const auto member = data.ConsumeIntegralInRange<std::size_t>(0, kGaugeMembers.size());
        // One key is not named after its member.
        const std::string_view key =
            member == kGaugeMembers.size() ? "Border" : kGaugeMembers[member].name;
        // The mask is drawn at once; it comes when it is known that the drawing has an end.
        if (key != "AutoMask") bag.Put(key, SomeValue(data, picture));
    }
    try {
        gauge.ReadProperties(bag);
        if (!DrawsForever(gauge)) gauge.SetAutoMask(true);
    } catch (const RuntimeError& error) {
        Require(error.number() > 0, "an error has its number");
    }

    PropertyBag saved;
    try {
        gauge.WriteProperties(saved);
    } catch (const RuntimeError& error) {
        Require(error.number() == kOverflow, "only what is too large can't be saved");
        return 0;
    }
    PropertyBag again;
    gauge.WriteProperties(again);
    for (const GaugeMember& member : kGaugeMembers)
        Require(SameValue(saved.ReadProperty(member.name, {}), again.ReadProperty(member.name, {})),
                "saving changes nothing");
    return 0;
}
