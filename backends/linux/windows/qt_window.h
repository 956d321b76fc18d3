// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <string>

#include "platform/controls.h"

class QMenu;
class QWidget;

namespace corvane::linux_desktop {

class ControlHandles;
class Frame;
class Gdi;
class Pictures;
class PrinterChoice;

/// What all windows of a toolkit share.
struct ToolkitParts {
    const Pictures& pictures;
    Gdi& gdi;
    ControlHandles& controls;
    PrinterChoice& printer;
};

/// A window whose menu bar stands above the client area.
class QtWindow final : public IWindowPeer {
public:
    /// The parts must outlive the window.
    QtWindow(const WindowDescription& description, WindowPeerEvents events,
             const ToolkitParts& parts);
    ~QtWindow() override;

    void AddFixture(const ControlDescription& control) override;
    [[nodiscard]] std::unique_ptr<ITextPeer> AddText(const ControlDescription& control,
                                                     TextPeerEvents events) override;
    [[nodiscard]] std::unique_ptr<IRangePeer> AddRange(const ControlDescription& control) override;
    [[nodiscard]] std::unique_ptr<ILabelPeer> AddLabel(const ControlDescription& control) override;
    [[nodiscard]] std::unique_ptr<IPicturePeer> AddPicture(
        const ControlDescription& control) override;
    [[nodiscard]] std::unique_ptr<IButtonPeer> AddButton(const ControlDescription& control,
                                                         ButtonPeerEvents events) override;
    [[nodiscard]] std::unique_ptr<IListPeer> AddList(const ControlDescription& control,
                                                     const std::vector<std::string>& items,
                                                     ListPeerEvents events) override;
    [[nodiscard]] std::unique_ptr<ICheckBoxPeer> AddCheckBox(const ControlDescription& control,
                                                             CheckBoxPeerEvents events) override;
    [[nodiscard]] std::unique_ptr<IListViewPeer> AddListView(const ControlDescription& control,
                                                             ListViewPeerEvents events) override;
    [[nodiscard]] std::unique_ptr<ICalendarPeer> AddCalendar(const ControlDescription& control,
                                                             const CalendarDescription& calendar,
                                                             CalendarPeerEvents events) override;
    [[nodiscard]] std::unique_ptr<IControlHost> AddControl(
        const ControlDescription& control) override;
    void AddMenu(const MenuDescription& menu, std::function<void()> Click) override;
    void Show() override;
    void ShowModal() override;
    void Hide() override;
    void SetBorderStyle(BorderStyle style) override;
    [[nodiscard]] WindowSize Size() const override;
    [[nodiscard]] std::optional<std::string> AskForFile(const FileDialogRequest& request) override;
    bool AskForPrinter(std::int32_t flags) override;
    [[nodiscard]] HWND hWnd() const override;
    [[nodiscard]] HICON hIcon() const override;

private:
    /// The control's widget in its place; nullptr if it is nothing to see.
    QWidget* Place(const ControlDescription& control);
    void PrepareToShow();
    void OrderTabStops();

    struct DeleteLater {
        void operator()(QObject* object) const { object->deleteLater(); }
    };

    ToolkitParts parts_;
    StartPosition position_;
    // The window may be let go inside one of its own events.
    std::unique_ptr<Frame, DeleteLater> frame_;
    QWidget* client_;
    std::map<std::string, QWidget*, std::less<>> containers_;
    std::map<std::string, QMenu*, std::less<>> menus_;
    std::map<int, QWidget*> tab_stops_;
    bool shown_ = false;
};

}  // namespace corvane::linux_desktop
