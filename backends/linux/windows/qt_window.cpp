// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/qt_window.h"

#include <QCloseEvent>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "linux/windows/control_widgets.h"
#include "linux/windows/look.h"
#include "linux/windows/text_peers.h"

namespace corvane::linux_desktop {

class QtWindow::Frame final : public QMainWindow {
public:
    explicit Frame(WindowPeerEvents events) : events_(std::move(events)) {}

    void LetGo() {
        events_ = {};
        hide();
    }

protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        // A copy, since the handler may let this window go.
        if (const auto handler = events_.CloseRequested) handler();
    }

private:
    WindowPeerEvents events_;
};

QtWindow::QtWindow(const WindowDescription& description, WindowPeerEvents events)
    : frame_(new Frame(std::move(events))), client_(new QWidget) {
    frame_->setObjectName(Words(description.name));
    frame_->setWindowTitle(Words(description.caption));
    frame_->setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                           Qt::WindowCloseButtonHint);
    client_->setFixedSize(Pixels(description.client_width), Pixels(description.client_height));
    frame_->setCentralWidget(client_);
    frame_->layout()->setSizeConstraint(QLayout::SetFixedSize);
}

QtWindow::~QtWindow() {
    frame_->LetGo();
}

void QtWindow::AddFixture(const ControlDescription& control) {
    Place(control);
}

std::unique_ptr<ITextPeer> QtWindow::AddText(const ControlDescription& control,
                                             TextPeerEvents events) {
    return MakeTextPeer(*Place(control), std::move(events));
}

void QtWindow::AddMenu(const MenuDescription& menu, std::function<void()> Click) {
    const QString caption = Words(menu.caption);
    if (menu.menu.empty()) {
        QMenu* added = frame_->menuBar()->addMenu(caption);
        added->setObjectName(Words(menu.name));
        menus_[std::string(menu.name)] = added;
        return;
    }
    QMenu* holder = menus_.find(menu.menu)->second;
    QAction* entry = menu.caption == "-" ? holder->addSeparator() : holder->addAction(caption);
    entry->setObjectName(Words(menu.name));
    if (Click)
        QObject::connect(entry, &QAction::triggered, entry,
                         [Click = std::move(Click)] { Click(); });
}

void QtWindow::Show() {
    if (!std::exchange(shown_, true)) OrderTabStops();
    frame_->show();
}

QWidget* QtWindow::Place(const ControlDescription& control) {
    QWidget* holder =
        control.container.empty() ? client_ : containers_.find(control.container)->second;
    QWidget* widget = MakeControlWidget(control, *holder);
    if (widget == nullptr) return nullptr;
    widget->setGeometry(WidgetPlace(control, *widget));
    if (control.kind == ControlKind::Frame) containers_[std::string(control.name)] = widget;
    if (control.tab_index != kNoTabStop && (widget->focusPolicy() & Qt::TabFocus) != 0)
        tab_stops_[control.tab_index] = widget;
    return widget;
}

void QtWindow::OrderTabStops() {
    QWidget* previous = nullptr;
    for (const auto& [index, widget] : tab_stops_) {
        if (previous != nullptr)
            QWidget::setTabOrder(previous, widget);
        else
            widget->setFocus();
        previous = widget;
    }
}

}  // namespace corvane::linux_desktop
