// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "linux/canvas/canvas.h"
#include "linux/printing/printer_choice.h"
#include "linux/windows/control_handles.h"
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

    /// The drawing calls on the surfaces of its windows, and on what else is added.
    [[nodiscard]] Gdi& Gdi32() { return gdi_; }
    /// The controls of its windows, as far as they have been asked for their handles.
    [[nodiscard]] const ControlHandles& Controls() const { return controls_; }
    /// What persons have chosen in the print dialogs of its windows.
    [[nodiscard]] PrinterChoice& ChosenPrinter() { return printer_; }

private:
    Gdi gdi_;
    Pictures pictures_;
    ControlHandles controls_;
    PrinterChoice printer_;
};

}  // namespace corvane::linux_desktop
