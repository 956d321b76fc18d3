// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/controls.h"

namespace corvane::linux_desktop {

/// Windows of Qt's widgets. Needs a QApplication.
class QtToolkit final : public IWindowToolkit {
public:
    QtToolkit();

    [[nodiscard]] std::unique_ptr<IWindowPeer> CreateWindow(const WindowDescription& description,
                                                            WindowPeerEvents events) override;
};

}  // namespace corvane::linux_desktop
