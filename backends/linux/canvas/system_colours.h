// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRgb>

#include "platform/gdi32.h"

namespace corvane::linux_desktop {

/// The colour 0x00BBGGRR of a part of the windows; 0 if there is no such part.
[[nodiscard]] Colour SystemColour(std::int32_t index);

/// An opaque pixel of that colour, a system colour being what it is at the moment.
[[nodiscard]] QRgb PixelOf(Colour colour);

}  // namespace corvane::linux_desktop
