// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/controls.h"

namespace corvane::forms {

/// A control that the system puts elsewhere than its layout says. In twips, in single precision;
/// the toolkit rounds to its pixels, the properties keep what was computed.
template <class Peer>
class Movable {
public:
    [[nodiscard]] float Left() const { return place_.left; }
    [[nodiscard]] float Top() const { return place_.top; }
    [[nodiscard]] float Width() const { return place_.width; }
    [[nodiscard]] float Height() const { return place_.height; }
    void SetLeft(float left) { Move(place_.left, left); }
    void SetTop(float top) { Move(place_.top, top); }
    void SetWidth(float width) { Move(place_.width, width); }
    void SetHeight(float height) { Move(place_.height, height); }

protected:
    explicit Movable(const TwipsRect& place)
        : place_{static_cast<float>(place.left), static_cast<float>(place.top),
                 static_cast<float>(place.width), static_cast<float>(place.height)} {}
    ~Movable() = default;

    std::unique_ptr<Peer> peer_;

private:
    void Move(float& measure, float value) {
        measure = value;
        peer_->SetPlace(place_);
    }

    ComputedPlace place_;
};

}  // namespace corvane::forms
