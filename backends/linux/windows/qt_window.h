// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <map>
#include <memory>
#include <string>

#include "platform/controls.h"

class QMenu;

namespace corvane::linux_desktop {

/// A window of fixed size whose menu bar stands above the client area.
class QtWindow final : public IWindowPeer {
public:
    QtWindow(const WindowDescription& description, WindowPeerEvents events);
    ~QtWindow() override;

    void AddFixture(const ControlDescription& control) override;
    [[nodiscard]] std::unique_ptr<ITextPeer> AddText(const ControlDescription& control,
                                                     TextPeerEvents events) override;
    void AddMenu(const MenuDescription& menu, std::function<void()> Click) override;
    void Show() override;

private:
    /// The control's widget in its place; nullptr if it is nothing to see.
    QWidget* Place(const ControlDescription& control);
    void OrderTabStops();

    /// Hands a person's wish to close the window over instead of closing it.
    class Frame;
    struct DeleteLater {
        void operator()(QObject* object) const { object->deleteLater(); }
    };

    // The window may be let go inside one of its own events.
    std::unique_ptr<Frame, DeleteLater> frame_;
    QWidget* client_;
    std::map<std::string, QWidget*, std::less<>> containers_;
    std::map<std::string, QMenu*, std::less<>> menus_;
    std::map<int, QWidget*> tab_stops_;
    bool shown_ = false;
};

}  // namespace corvane::linux_desktop
