// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/list_widget.h"

#include <QMouseEvent>
#include <QPointer>
#include <utility>

#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

class ListPeer final : public IListPeer {
public:
    explicit ListPeer(ListWidget& list) : list_(&list) {}

    void SetFocus() override {
        if (list_) list_->setFocus();
    }

private:
    QPointer<ListWidget> list_;
};

std::int32_t SelectedRow(const QListWidget& list) {
    const auto selected = list.selectedItems();
    return selected.isEmpty() ? -1 : list.row(selected.front());
}

}  // namespace

ListWidget::ListWidget(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ListWidget::DoubleClickItem(const QModelIndex& item) {
    const QPointer<ListWidget> self(this);
    setCurrentIndex(item);
    if (!self) return;
    // A copy, since the handler may let this list go.
    if (const auto handler = DblClick) handler();
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
    if (itemAt(event->position().toPoint()) != nullptr) QListWidget::mousePressEvent(event);
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    QListWidget::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton) return;
    // A copy, since the handler may let this list go.
    if (const auto handler = DblClick) handler();
}

QItemSelectionModel::SelectionFlags ListWidget::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
    const auto command = QListWidget::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate
                                                           : command;
}

std::unique_ptr<IListPeer> MakeListPeer(QWidget& widget, const std::vector<std::string>& items,
                                        ListPeerEvents events) {
    auto& list = dynamic_cast<ListWidget&>(widget);
    for (const std::string& item : items) list.addItem(Words(item));
    QObject::connect(&list, &QListWidget::itemSelectionChanged, &list,
                     [&list, Selected = std::move(events.Selected)] {
                         const auto handler = Selected;
                         if (handler) handler(SelectedRow(list));
                     });
    list.DblClick = std::move(events.DblClick);
    return std::make_unique<ListPeer>(list);
}

}  // namespace corvane::linux_desktop
