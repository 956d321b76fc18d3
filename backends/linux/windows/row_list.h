// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeWidget>
#include <memory>

#include "platform/controls.h"

namespace corvane::linux_desktop {

/// Rows under column headers, one of which may be marked. Enter is left to the window.
class RowList final : public QTreeWidget {
public:
    RowList(const QStringList& headers, QWidget* holder);

    void SetEvents(ListViewPeerEvents events) { events_ = std::move(events); }
    /// kNoRow marks none. Tells nothing.
    void MarkRow(std::int32_t row);
    void SetHideMark(bool hide);
    /// As a person's click on that row, or beside the rows for kNoRow.
    void ClickRow(std::int32_t row);
    /// As a person's double click, which is told as a click first.
    void DoubleClickRow(std::int32_t row);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    void TellMark();
    void TellDoubleClick(std::int32_t row);
    void ShowOrHideMark();

    ListViewPeerEvents events_;
    QPalette plain_;
    bool hide_mark_ = true;
    bool pressed_ = false;  // the left button went down and its click is still to be told
};

/// The peer of such a widget. It shows nothing more once its widget is gone.
[[nodiscard]] std::unique_ptr<IListViewPeer> MakeListViewPeer(QWidget& widget,
                                                              ListViewPeerEvents events);

}  // namespace corvane::linux_desktop
