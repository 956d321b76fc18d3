// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/row_list.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <utility>

#include "linux/windows/look.h"

namespace corvane::linux_desktop {

RowList::RowList(const QStringList& headers, QWidget* holder)
    : QTreeWidget(holder), plain_(palette()) {
    setColumnCount(static_cast<int>(headers.size()));
    setHeaderLabels(headers);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] { TellMark(); });
    ShowOrHideMark();
}

void RowList::MarkRow(std::int32_t row) {
    const QSignalBlocker quiet(this);
    if (row == kNoRow) {
        setCurrentItem(nullptr);
        clearSelection();
    } else {
        setCurrentItem(topLevelItem(row), 0,
                       QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

void RowList::SetHideMark(bool hide) {
    hide_mark_ = hide;
    ShowOrHideMark();
}

void RowList::ClickRow(std::int32_t row) {
    MarkRow(row == kNoRow ? indexOfTopLevelItem(currentItem()) : row);
    // A copy, since the handler may let this list go.
    if (const auto handler = events_.Click) handler(row);
}

void RowList::DoubleClickRow(std::int32_t row) {
    const QPointer<RowList> self(this);
    ClickRow(row);
    if (self) TellDoubleClick(row);
}

void RowList::TellDoubleClick(std::int32_t row) {
    // The click before may have moved the mark away from the row.
    if (row != kNoRow) MarkRow(row);
    if (const auto handler = events_.DblClick) handler(row);
}

void RowList::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
    // A click is told with its row, when the button comes up.
    const QSignalBlocker quiet(this);
    QTreeWidget::mousePressEvent(event);
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
    QTreeWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
    ClickRow(indexOfTopLevelItem(itemAt(event->position().toPoint())));
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    const std::int32_t row = indexOfTopLevelItem(itemAt(event->position().toPoint()));
    {
        const QSignalBlocker quiet(this);
        QTreeWidget::mouseDoubleClickEvent(event);
    }
    pressed_ = false;
    if (event->button() == Qt::LeftButton) TellDoubleClick(row);
}

void RowList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        QTreeWidget::keyPressEvent(event);
}

void RowList::focusInEvent(QFocusEvent* event) {
    QTreeWidget::focusInEvent(event);
    ShowOrHideMark();
}

void RowList::focusOutEvent(QFocusEvent* event) {
    QTreeWidget::focusOutEvent(event);
    ShowOrHideMark();
    const Qt::FocusReason reason = event->reason();
    // Another window or a menu has the keyboard; in this window the focus stays here.
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
    if (const auto handler = events_.LostFocus) handler();
}

QItemSelectionModel::SelectionFlags RowList::selectionCommand(const QModelIndex& index,
                                                              const QEvent* /*event*/) const {
    // Ctrl must not take the mark away: there would be rows, and none to work on.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
}

void RowList::TellMark() {
    const auto marked = selectedItems();
    if (marked.isEmpty()) return;
    if (const auto handler = events_.Select) handler(indexOfTopLevelItem(marked.first()));
}

void RowList::ShowOrHideMark() {
    QPalette colours = plain_;
    if (hide_mark_ && !hasFocus()) {
        colours.setColor(QPalette::Highlight, plain_.color(QPalette::Base));
        colours.setColor(QPalette::HighlightedText, plain_.color(QPalette::Text));
    }
    setPalette(colours);
}

namespace {

class ListViewPeer final : public IListViewPeer {
public:
    ListViewPeer(RowList& list, ListViewPeerEvents events) : list_(&list) {
        list.SetEvents(std::move(events));
    }

    void SetFocus() override {
        if (list_) list_->setFocus();
    }
    void SetPlace(const ComputedPlace& place) override {
        if (list_) list_->setGeometry(PixelPlace(place));
    }
    void SetColumnWidth(std::int32_t column, float width) override {
        // The last one is stretched.
        if (list_ && column + 1 < list_->columnCount())
            list_->setColumnWidth(column, Pixels(width));
    }
    void AddRow(const std::string& text) override {
        if (!list_) return;
        const QSignalBlocker quiet(*list_);
        list_->addTopLevelItem(new QTreeWidgetItem({Words(text)}));
    }
    void SetCell(std::int32_t row, std::int32_t column, const std::string& text) override {
        if (!list_) return;
        QTreeWidgetItem& item = *list_->topLevelItem(row);
        item.setText(column, Words(text));
        // It may be longer than its column.
        item.setToolTip(column, Words(text));
    }
    void RemoveRow(std::int32_t row) override {
        if (!list_) return;
        const QSignalBlocker quiet(*list_);
        delete list_->takeTopLevelItem(row);
    }
    void RemoveAllRows() override {
        if (!list_) return;
        const QSignalBlocker quiet(*list_);
        list_->clear();
    }
    void SelectRow(std::int32_t row) override {
        if (list_) list_->MarkRow(row);
    }
    void BringIntoView(std::int32_t row) override {
        if (list_) list_->scrollToItem(list_->topLevelItem(row));
    }
    void SetHideSelection(bool hide) override {
        if (list_) list_->SetHideMark(hide);
    }

private:
    QPointer<RowList> list_;
};

}  // namespace

std::unique_ptr<IListViewPeer> MakeListViewPeer(QWidget& widget, ListViewPeerEvents events) {
    return std::make_unique<ListViewPeer>(dynamic_cast<RowList&>(widget), std::move(events));
}

}  // namespace corvane::linux_desktop
