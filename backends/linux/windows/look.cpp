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

QFont DialogFont() {
    // Its letters are nearly as wide as those that the layouts were drawn with.
    const QString family = QStringLiteral("Liberation Sans");
    QFont font;
    if (QFontDatabase::hasFamily(family)) font.setFamily(family);
    font.setPixelSize(11);
    return font;
}

}  // namespace corvane::linux_desktop
