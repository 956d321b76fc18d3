// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/qt_window.h"

#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "linux/canvas/control_view.h"
#include "linux/printing/print_dialog.h"
#include "linux/windows/control_peers.h"
#include "linux/windows/control_widgets.h"
#include "linux/windows/file_dialog.h"
#include "linux/windows/frame.h"
#include "linux/windows/list_widget.h"
#include "linux/windows/look.h"
#include "linux/windows/month_calendar.h"
#include "linux/windows/row_list.h"
#include "linux/windows/text_peers.h"

namespace corvane::linux_desktop {

QtWindow::QtWindow(const WindowDescription& description, WindowPeerEvents events,
                   const ToolkitParts& parts)
    : parts_(parts),
      position_(description.position),
      frame_(new Frame(std::move(events))),
      client_(new QWidget) {
    frame_->setObjectName(Words(description.name));
    frame_->setWindowTitle(Words(description.caption));
    const QSize size(Pixels(description.client_width), Pixels(description.client_height));
    const bool sizable = description.border == BorderStyle::Sizable;
    client_->resize(size);
    if (description.white_background) {
        QPalette palette = client_->palette();
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::WindowText, Qt::black);
        client_->setPalette(palette);
        client_->setAutoFillBackground(true);
    }
    frame_->setCentralWidget(client_);
    if (!sizable) frame_->HoldClientSize(size);
    frame_->resize(size);
    frame_->SetBorderStyle(description.border);
}

QtWindow::~QtWindow() {
    frame_->LetGo();
}

void QtWindow::AddFixture(const ControlDescription& control) {
    Place(control);
}

std::unique_ptr<ITextPeer> QtWindow::AddText(const ControlDescription& control,
                                             TextPeerEvents events) {
    return MakeTextPeer(*Place(control), parts_.controls, std::move(events));
}

std::unique_ptr<IRangePeer> QtWindow::AddRange(const ControlDescription& control) {
    return MakeRangePeer(*Place(control));
}

std::unique_ptr<ILabelPeer> QtWindow::AddLabel(const ControlDescription& control) {
    return MakeLabelPeer(*Place(control), control);
}

std::unique_ptr<IPicturePeer> QtWindow::AddPicture(const ControlDescription& control) {
    return MakePicturePeer(*Place(control), parts_.pictures);
}

std::unique_ptr<IButtonPeer> QtWindow::AddButton(const ControlDescription& control,
                                                 ButtonPeerEvents events) {
    return MakeButtonPeer(*Place(control), std::move(events));
}

std::unique_ptr<IListPeer> QtWindow::AddList(const ControlDescription& control,
                                             const std::vector<std::string>& items,
                                             ListPeerEvents events) {
    return MakeListPeer(*Place(control), items, std::move(events));
}

std::unique_ptr<ICheckBoxPeer> QtWindow::AddCheckBox(const ControlDescription& control,
                                                     CheckBoxPeerEvents events) {
    return MakeCheckBoxPeer(*Place(control), std::move(events));
}

std::unique_ptr<IListViewPeer> QtWindow::AddListView(const ControlDescription& control,
                                                     ListViewPeerEvents events) {
    return MakeListViewPeer(*Place(control), std::move(events));
}

std::unique_ptr<ICalendarPeer> QtWindow::AddCalendar(const ControlDescription& control,
                                                     const CalendarDescription& calendar,
                                                     CalendarPeerEvents events) {
    return MakeCalendarPeer(*Place(control), calendar, std::move(events));
}

std::unique_ptr<IControlHost> QtWindow::AddControl(const ControlDescription& control) {
    return std::make_unique<QtControlHost>(parts_.gdi, dynamic_cast<ControlView&>(*Place(control)));
}

void QtWindow::AddMenu(const MenuDescription& menu, std::function<void()> Click) {
    const QString caption = Words(menu.caption);
    if (menu.menu.empty()) {
        QMenu* added = frame_->menuBar()->addMenu(caption);
        added->setObjectName(Words(menu.name));
        added->setAccessibleName(QString(caption).remove(u'&'));
        menus_[std::string(menu.name)] = added;
        return;
    }
    QMenu* holder = menus_.find(menu.menu)->second;
    QAction* entry = menu.caption == "-" ? holder->addSeparator() : holder->addAction(caption);
    entry->setObjectName(Words(menu.name));
    // From the loop, since the entry may open a dialog: a program that chooses it for a person
    // waits for the answer meanwhile.
    if (Click)
        QObject::connect(
            entry, &QAction::triggered, entry, [Click = std::move(Click)] { Click(); },
            Qt::QueuedConnection);
}

void QtWindow::Show() {
    PrepareToShow();
    frame_->show();
    // One that stands behind other windows comes to the front.
    frame_->raise();
    frame_->activateWindow();
}

void QtWindow::ShowModal() {
    PrepareToShow();
    frame_->ShowModal();
}

void QtWindow::Hide() {
    frame_->hide();
}

void QtWindow::SetBorderStyle(BorderStyle style) {
    frame_->SetBorderStyle(style);
}

WindowSize QtWindow::Size() const {
    return frame_->Size();
}

std::optional<std::string> QtWindow::AskForFile(const FileDialogRequest& request) {
    return ChooseFile(request, frame_.get());
}

bool QtWindow::AskForPrinter(std::int32_t flags) {
    return AskHowToPrint(flags, parts_.printer, frame_.get());
}

HWND QtWindow::hWnd() const {
    return static_cast<HWND>(frame_->winId());
}

HICON QtWindow::hIcon() const {
    constexpr HICON kProgramIcon = 1;
    return kProgramIcon;
}

void QtWindow::PrepareToShow() {
    if (std::exchange(shown_, true)) return;
    OrderTabStops();
    if (position_ == StartPosition::CentreOfScreen) frame_->MoveToCentre();
}

QWidget* QtWindow::Place(const ControlDescription& control) {
    QWidget* holder =
        control.container.empty() ? client_ : containers_.find(control.container)->second;
    QWidget* widget = MakeControlWidget(control, *holder, parts_.pictures);
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
