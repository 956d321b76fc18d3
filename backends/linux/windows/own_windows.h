// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "linux/session/windows.h"

class QWidget;

namespace corvane::linux_desktop {

/// The one of our own windows that is known by that number, shown or not; nullptr if it is none of
/// ours.
[[nodiscard]] QWidget* FindOwnWindow(WindowId window);

/// For a session that lets a program see no windows but its own: those, by Qt.
class OwnWindows final : public Windows {
public:
    [[nodiscard]] WindowId Active() override;
    [[nodiscard]] std::vector<WindowId> List() override;
    [[nodiscard]] std::optional<WindowFacts> Describe(WindowId window) override;
    SessionAnswer Activate(WindowId window) override;
    SessionAnswer Minimise(WindowId window) override;
    SessionAnswer Maximise(WindowId window) override;
    SessionAnswer NormalSize(WindowId window) override;
    SessionAnswer Close(WindowId window) override;
};

}  // namespace corvane::linux_desktop
