// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "platform/controls.h"

class QTextEdit;
class QWidget;

namespace corvane::linux_desktop {

class ControlHandles;

/// The peer of a text widget, which must be a QLineEdit or a QTextEdit; it may outlive the widget.
/// `handles` must outlive the peer.
[[nodiscard]] std::unique_ptr<ITextPeer> MakeTextPeer(QWidget& widget, ControlHandles& handles,
                                                      TextPeerEvents events);

/// What stands in an editor; every line ends in LF.
[[nodiscard]] QString TextOf(const QTextEdit& editor);

}  // namespace corvane::linux_desktop
