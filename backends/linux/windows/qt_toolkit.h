// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

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

private:
    Pictures pictures_;
};

}  // namespace corvane::linux_desktop
