// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace corvane::linux_desktop {

/// A list of which one item is selected, or none until a person has selected one: a click beside
/// the items changes nothing.
class ListWidget final : public QListWidget {
public:
    explicit ListWidget(QWidget* parent);

    /// As a person's double click on that item.
    void DoubleClickItem(const QModelIndex& item);

    std::function<void()> DblClick;  ///< anywhere in the list; behind the change of the selection

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
};

/// The peer of a ListWidget, which gets its items.
[[nodiscard]] std::unique_ptr<IListPeer> MakeListPeer(QWidget& widget,
                                                      const std::vector<std::string>& items,
                                                      ListPeerEvents events);

}  // namespace corvane::linux_desktop
