// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>
#include <map>

#include "platform/user32.h"

namespace corvane::linux_desktop {

/// The handles by which controls are sent messages. A control is no window of the desktop's here:
/// making it one would make one of everything around it.
class ControlHandles {
public:
    /// That of the control, always the same.
    [[nodiscard]] HWND HandleOf(QWidget& control);
    /// nullptr if there is none or it is gone.
    [[nodiscard]] QWidget* Find(HWND handle) const;

private:
    std::map<HWND, QPointer<QWidget>> controls_;
    HWND last_ = 0x80000000;  // the desktop's own have no more than 29 bits
};

}  // namespace corvane::linux_desktop
