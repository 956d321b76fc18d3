// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/accessible_cells.h"

#include <QApplication>
#include <QPersistentModelIndex>
#include <utility>

#include "linux/windows/accessible_cell.h"

namespace corvane::linux_desktop {
namespace {

/// Whether a dialog keeps mouse and keys from it. What the dialog itself has opened is free.
bool IsBehindDialog(const QWidget& widget) {
    const QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return false;
    for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget())
        if (at == dialog) return false;
    return true;
}

}  // namespace

AccessibleCells::AccessibleCells(QAbstractItemView& view, CellManners manners)
    : QAccessibleWidget(&view, manners.view_role), manners_(std::move(manners)) {}

AccessibleCells::~AccessibleCells() {
    ForgetCells();
}

QAbstractItemView& AccessibleCells::view() const {
    return static_cast<QAbstractItemView&>(*widget());
}

QModelIndex AccessibleCells::IndexOf(int row, int column) const {
    return view().model()->index(row, column, view().rootIndex());
}

void* AccessibleCells::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

int AccessibleCells::Stride() const {
    return columnCount() + (manners_.has_row_headers ? 1 : 0);
}

int AccessibleCells::childCount() const {
    return (rowCount() + (manners_.has_column_headers ? 1 : 0)) * Stride();
}

QAccessibleInterface* AccessibleCells::child(int number) const {
    if (number < 0 || number >= childCount()) return nullptr;
    if (const auto known = cells_.find(number); known != cells_.end())
        return QAccessible::accessibleInterface(known->second);
    const int row = number / Stride() - (manners_.has_column_headers ? 1 : 0);
    const int column = number % Stride() - (manners_.has_row_headers ? 1 : 0);
    QAccessibleInterface* cell = nullptr;
    if (row < 0 || column < 0)
        cell = new AccessibleHeader(*this, row, column);
    else
        cell = new AccessibleCell(*this, row, column);
    cells_[number] = QAccessible::registerAccessibleInterface(cell);
    return cell;
}

int AccessibleCells::indexOfChild(const QAccessibleInterface* child) const {
    for (const auto& [number, id] : cells_)
        if (QAccessible::accessibleInterface(id) == child) return number;
    return -1;
}

QAccessibleInterface* AccessibleCells::childAt(int x, int y) const {
    const QWidget* viewport = view().viewport();
    const QModelIndex index = view().indexAt(viewport->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
}

QAccessibleInterface* AccessibleCells::focusChild() const {
    const QModelIndex index = view().currentIndex();
    return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
}

QAccessibleInterface* AccessibleCells::cellAt(int row, int column) const {
    if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount()) return nullptr;
    return child((row + (manners_.has_column_headers ? 1 : 0)) * Stride() + column +
                 (manners_.has_row_headers ? 1 : 0));
}

int AccessibleCells::selectedCellCount() const {
    return static_cast<int>(view().selectionModel()->selectedIndexes().size());
}

QList<QAccessibleInterface*> AccessibleCells::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const QModelIndex& index : view().selectionModel()->selectedIndexes())
        cells.push_back(cellAt(index.row(), index.column()));
    return cells;
}

QString AccessibleCells::columnDescription(int column) const {
    return view().model()->headerData(column, Qt::Horizontal).toString();
}

QString AccessibleCells::rowDescription(int row) const {
    return view().model()->headerData(row, Qt::Vertical).toString();
}

int AccessibleCells::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

int AccessibleCells::columnCount() const {
    return view().model()->columnCount(view().rootIndex());
}

int AccessibleCells::rowCount() const {
    return view().model()->rowCount(view().rootIndex());
}

QList<int> AccessibleCells::selectedRows() const {
    QList<int> rows;
    for (const QModelIndex& index : view().selectionModel()->selectedRows())
        rows.push_back(index.row());
    return rows;
}

bool AccessibleCells::isRowSelected(int row) const {
    return view().selectionModel()->isRowSelected(row, view().rootIndex());
}

bool AccessibleCells::selectRow(int row) {
    const QModelIndex index = IndexOf(row, 0);
    if (!index.isValid() || !view().isEnabled()) return false;
    ActSoon(index, [&view = view()](const QModelIndex& chosen) { view.setCurrentIndex(chosen); });
    return true;
}

void AccessibleCells::ActSoon(const QModelIndex& cell, CellDeed deed) const {
    // The row may be gone by then, and others have moved up.
    QMetaObject::invokeMethod(
        &view(),
        [&view = view(), deed = std::move(deed), cell = QPersistentModelIndex(cell)] {
            if (cell.isValid() && view.isEnabled() && !IsBehindDialog(view)) deed(cell);
        },
        Qt::QueuedConnection);
}

void AccessibleCells::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
    ForgetCells();
}

void AccessibleCells::ForgetCells() {
    for (const auto& [number, id] : std::exchange(cells_, {}))
        QAccessible::deleteAccessibleInterface(id);
}

}  // namespace corvane::linux_desktop
