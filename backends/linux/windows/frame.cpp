// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/frame.h"

#include <QCloseEvent>
#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <QWindowStateChangeEvent>
#include <utility>

#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

constexpr Qt::WindowFlags FlagsOf(BorderStyle style) {
    constexpr Qt::WindowFlags kFixedSingle =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
        Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
    switch (style) {
        case BorderStyle::None:
            return Qt::Window | Qt::FramelessWindowHint;
        case BorderStyle::Sizable:
            return kFixedSingle | Qt::WindowMaximizeButtonHint;
        case BorderStyle::FixedSingle:
            break;
    }
    return kFixedSingle;
}

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
    const bool visible = isVisible();
    setWindowFlags(FlagsOf(style));
    // New flags hide the window.
    if (visible) show();
    if (grown_) OfferMaximising(true);
}

void Frame::HoldClientSize(QSize size) {
    held_size_ = size;
    centralWidget()->setFixedSize(size);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void Frame::LetGrow() {
    if (!held_size_ || std::exchange(grown_, true)) return;
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    constexpr QSize kNoLimit(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    centralWidget()->setMaximumSize(kNoLimit);
    setMinimumSize(0, 0);
    setMaximumSize(kNoLimit);
    OfferMaximising(true);
}

void Frame::HoldSize() {
    if (!std::exchange(grown_, false)) return;
    OfferMaximising(false);
    HoldClientSize(*held_size_);
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

WindowSize Frame::Size() const {
    const QSize client = centralWidget()->size();
    const QSize outer = frameGeometry().size();
    return {ToTwips(client.width()), ToTwips(client.height()), ToTwips(outer.width()),
            ToTwips(outer.height())};
}

bool Frame::event(QEvent* event) {
    const bool taken = QMainWindow::event(event);
    switch (event->type()) {
        // The desktop tells the size of its frame some time after the window is shown, and no event
        // tells that it has; one of these comes with it.
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::Show:
        case QEvent::WindowActivate:
        case QEvent::LayoutRequest:
        case QEvent::UpdateRequest:
            TellSize();
            break;
        default:
            break;
    }
    return taken;
}

void Frame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
    // Some desktops forget a minimised window's state when it is hidden; it keeps that all the
    // same.
    if (event->spontaneous() && isHidden() && (before & Qt::WindowMinimized) != 0)
        return setWindowState(before);
    if ((before & Qt::WindowMaximized) != 0 && !isMaximized() && !isMinimized()) HoldSize();
}

void Frame::OfferMaximising(bool offer) {
    const Qt::WindowFlags flags = windowFlags().setFlag(Qt::WindowMaximizeButtonHint, offer);
    overrideWindowFlags(flags);
    if (windowHandle() != nullptr) windowHandle()->setFlags(flags);
}

void Frame::TellSize() {
    if (!isVisible() || centralWidget() == nullptr) return;
    const WindowSize size = Size();
    if (size == std::exchange(told_, size)) return;
    // A copy, since the handler may let this window go.
    if (const auto handler = events_.Resized) handler(size);
}

void Frame::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QMainWindow::keyPressEvent(event);
    for (auto* button : findChildren<QPushButton*>())
        if (button->isDefault() && button->isEnabled() && button->isVisible())
            return button->click();
}

void Frame::closeEvent(QCloseEvent* event) {
    event->ignore();
    // A copy, since the handler may let this window go.
    if (const auto handler = events_.CloseRequested) handler();
}

}  // namespace corvane::linux_desktop
