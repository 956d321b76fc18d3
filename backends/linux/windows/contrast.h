// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

/// Colours that can be told apart, whatever colours the desktop has.
namespace corvane::linux_desktop {

/// How much two colours stand out from each other, from 1 (alike) to 21 (black and white), as the
/// guidelines for accessible pages reckon it.
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);

/// `share` of the second colour, from 0 to 1, in the first.
[[nodiscard]] QColor Blend(const QColor& first, const QColor& second, double share);

/// The wanted colour of a text, but where it could not be read on that background the other one.
[[nodiscard]] QColor Readable(const QColor& wanted, const QColor& background, const QColor& other);

/// The same colours, apart from those in which a text or an edge would vanish: on black, the
/// toolkit makes greyed texts and both sides of an edge black, too.
[[nodiscard]] QPalette WithoutVanishing(QPalette colours);

}  // namespace corvane::linux_desktop
