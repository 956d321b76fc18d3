// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls.h"

class QRect;
class QWidget;

namespace corvane::linux_desktop {

class Pictures;

/// A widget that shows what the description says, named after it for the tests of the toolkit and
/// for screen readers; `holder` owns it. nullptr for kinds with nothing to see.
[[nodiscard]] QWidget* MakeControlWidget(const ControlDescription& control, QWidget& holder,
                                         const Pictures& pictures);

/// Where that widget stands in its holder, in pixels: the place described, for a label of one line
/// and a check box as wide as its text needs.
[[nodiscard]] QRect WidgetPlace(const ControlDescription& control, const QWidget& widget);

}  // namespace corvane::linux_desktop
