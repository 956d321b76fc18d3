// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/controls.h"

class QWidget;

namespace corvane::linux_desktop {

class Pictures;

/// Peers of the widgets that MakeControlWidget makes for a progress bar, a label, a picture, a
/// button and a check box. They show nothing more once their widget is gone.

[[nodiscard]] std::unique_ptr<IRangePeer> MakeRangePeer(QWidget& widget);
/// A label of one line grows with its caption.
[[nodiscard]] std::unique_ptr<ILabelPeer> MakeLabelPeer(QWidget& widget,
                                                        const ControlDescription& control);
/// `pictures` must outlive the peer.
[[nodiscard]] std::unique_ptr<IPicturePeer> MakePicturePeer(QWidget& widget,
                                                            const Pictures& pictures);
[[nodiscard]] std::unique_ptr<IButtonPeer> MakeButtonPeer(QWidget& widget, ButtonPeerEvents events);
[[nodiscard]] std::unique_ptr<ICheckBoxPeer> MakeCheckBoxPeer(QWidget& widget,
                                                              CheckBoxPeerEvents events);

}  // namespace corvane::linux_desktop
