// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "linux/canvas/canvas.h"
#include "linux/windows/pictures.h"
#include "platform/controls.h"

namespace corvane::linux_desktop {

/// Windows of Qt's widgets. Needs a QApplication; outlives its
/// windows.
class QtToolkit final : public IWindowToolkit {
public:
    /// The folder of the program's pictures; it need not exist.
    explicit QtToolkit(const std::string& picture_folder);

    [[nodiscard]] std::unique_ptr<IWindowPeer> CreateWindow(const WindowDescription& description,
                                                            WindowPeerEvents events) override;

    /// The drawing calls on the surfaces of its windows.
    [[nodiscard]] IGdi32& Gdi32() { return gdi_; }

private:
    Gdi gdi_;
    Pictures pictures_;
};

}  // namespace corvane::linux_desktop
