// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <optional>

#include "platform/controls.h"

namespace corvane::linux_desktop {

/// The window as the desktop sees it. Hands a person's wish to close it over instead of closing.
class Frame final : public QMainWindow {
public:
    explicit Frame(WindowPeerEvents events);

    void SetBorderStyle(BorderStyle style);
    /// The client area has that size from now on, whatever the person or the desktop wants.
    void HoldClientSize(QSize size);
    /// Lets a window of fixed size be maximised, for as long as it then is: its client area grows
    /// and what stands in it keeps its place.
    void LetGrow();
    /// A window of fixed size has its size again.
    void HoldSize();
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
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TellSize();
    /// Without the window being hidden or made anew.
    void OfferMaximising(bool offer);

    WindowPeerEvents events_;
    std::optional<QSize> held_size_;  ///< of the client area
    bool grown_ = false;
    WindowSize told_;
};

}  // namespace corvane::linux_desktop
