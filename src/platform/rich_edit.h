// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "platform/gdi32.h"

/// The records by which a rich text control is told what to lay out and where. The order of their
/// fields is the published one.
namespace corvane {

struct RECT {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    friend bool operator==(const RECT&, const RECT&) = default;
};

/// Characters from cpMin on up to cpMax, which is exclusive; -1 is the end of the text. Positions
/// count as those of the control's Text do: from 0, CR LF as two.
struct CHARRANGE {
    std::int32_t cpMin = 0, cpMax = 0;
    friend bool operator==(const CHARRANGE&, const CHARRANGE&) = default;
};

/// What EM_FORMATRANGE is given. Rectangles are in twips, from the top left corner of the area that
/// the device can print on.
struct FORMATRANGE {
    HDC hdc = 0;        ///< where it is drawn
    HDC hdcTarget = 0;  ///< whose letters' sizes count
    RECT rc;            ///< where the text goes
    RECT rcPage;        ///< the whole page
    CHARRANGE chrg;     ///< which text
    friend bool operator==(const FORMATRANGE&, const FORMATRANGE&) = default;
};

}  // namespace corvane
