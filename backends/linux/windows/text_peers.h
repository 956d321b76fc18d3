// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/controls.h"

class QWidget;

namespace corvane::linux_desktop {

/// The peer of a text widget, which must be a QLineEdit or a QTextEdit and outlives it.
[[nodiscard]] std::unique_ptr<ITextPeer> MakeTextPeer(QWidget& widget, TextPeerEvents events);

}  // namespace corvane::linux_desktop
