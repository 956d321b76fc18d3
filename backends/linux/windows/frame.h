// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

#include "platform/controls.h"

namespace corvane::linux_desktop {

/// The window as the desktop sees it. Hands a person's wish to close it over instead of closing.
class Frame final : public QMainWindow {
public:
    explicit Frame(WindowPeerEvents events);

    void SetBorderStyle(BorderStyle style);
    /// In the middle of the screen on which the pointer is.
    void MoveToCentre();
    /// Shows the window and returns when it is hidden again or gone. Our other windows take no
    /// input meanwhile.
    void ShowModal();
    /// Tells nothing any more, and goes out of sight.
    void LetGo();

    /// With the frame that the desktop draws, as far as it is known.
    [[nodiscard]] WindowSize Size() const;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TellSize();

    WindowPeerEvents events_;
    WindowSize told_;
};

}  // namespace corvane::linux_desktop
