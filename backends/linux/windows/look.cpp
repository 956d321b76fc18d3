// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/look.h"

#include <QFontDatabase>
#include <algorithm>

namespace corvane::linux_desktop {

QRect PixelPlace(const ControlDescription& control) {
    const TwipsRect& place = control.place;
    QRect pixels(Pixels(place.left), Pixels(place.top), Pixels(place.width), Pixels(place.height));
    if (control.kind == ControlKind::Line)
        pixels.setSize({std::max(1, pixels.width()), std::max(1, pixels.height())});
    return pixels;
}

QRect PixelPlace(const ComputedPlace& place) {
    const QPoint corner(Pixels(place.left), Pixels(place.top));
    // The far edges are rounded, not the sizes: neighbours meet.
    const QPoint end(Pixels(place.left + place.width), Pixels(place.top + place.height));
    return {corner, QSize(end.x() - corner.x(), end.y() - corner.y())};
}

QFont FontOf(const FontDescription& description) {
    const QString family = Words(description.family);
    QFont font = DialogFont();
    if (QFontDatabase::hasFamily(family)) font.setFamily(family);
    font.setPixelSize(static_cast<int>(std::lround(description.points * 96 / 72)));
    font.setBold(description.bold);
    return font;
}

QFont DialogFont() {
    // Its letters are nearly as wide as those that the layouts were drawn with.
    const QString family = QStringLiteral("Liberation Sans");
    QFont font;
    if (QFontDatabase::hasFamily(family)) font.setFamily(family);
    font.setPixelSize(11);
    return font;
}

}  // namespace corvane::linux_desktop
