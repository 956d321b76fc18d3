// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/frame.h"

#include <QCloseEvent>
#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <utility>

namespace corvane::linux_desktop {
namespace {

/// Ends a loop when the window that it watches is hidden.
class UntilHidden final : public QObject {
public:
    UntilHidden(QObject& window, QEventLoop& loop) : loop_(loop) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* /*window*/, QEvent* event) override {
        // The desktop's own hiding, on another workspace or minimised, is spontaneous.
        if (event->type() == QEvent::Hide && !event->spontaneous()) loop_.quit();
        return false;
    }

private:
    QEventLoop& loop_;
};

}  // namespace

Frame::Frame(WindowPeerEvents events) : events_(std::move(events)) {
    SetBorderStyle(BorderStyle::FixedSingle);
}

void Frame::SetBorderStyle(BorderStyle style) {
    constexpr Qt::WindowFlags kFixedSingle =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
        Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
    const bool visible = isVisible();
    setWindowFlags(style == BorderStyle::None ? Qt::Window | Qt::FramelessWindowHint
                                              : kFixedSingle);
    // New flags hide the window.
    if (visible) show();
}

void Frame::MoveToCentre() {
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    adjustSize();
    QRect place(QPoint(), size());
    place.moveCenter(screen->geometry().center());
    move(place.topLeft());
}

void Frame::ShowModal() {
    const QPointer<Frame> self(this);
    QEventLoop loop;
    UntilHidden until_hidden(*this, loop);
    // Modality counts from the next showing.
    if (isVisible()) hide();
    setWindowModality(Qt::ApplicationModal);
    show();
    // A new border hides it only for a moment.
    do loop.exec();
    while (self && isVisible());
    if (self) setWindowModality(Qt::NonModal);
}

void Frame::LetGo() {
    events_ = {};
    hide();
}

void Frame::closeEvent(QCloseEvent* event) {
    event->ignore();
    // A copy, since the handler may let this window go.
    if (const auto handler = events_.CloseRequested) handler();
}

}  // namespace corvane::linux_desktop
