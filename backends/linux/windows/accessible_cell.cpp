// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/accessible_cell.h"

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>
#include <algorithm>

namespace corvane::linux_desktop {
namespace {

const QHeaderView* ColumnHeaders(const QAbstractItemView& view) {
    if (const auto* tree = qobject_cast<const QTreeView*>(&view)) return tree->header();
    if (const auto* table = qobject_cast<const QTableView*>(&view))
        return table->horizontalHeader();
    return nullptr;
}

QRect OnScreen(const QWidget& widget, const QRect& place) {
    return {widget.mapToGlobal(place.topLeft()), place.size()};
}

}  // namespace

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QString AccessibleCell::text(QAccessible::Text kind) const {
    const QModelIndex index = Index();
    if (kind != QAccessible::Name || !index.isValid()) return {};
    const auto& manners = list_.manners();
    return manners.Name ? manners.Name(index) : index.data().toString();
}

QRect AccessibleCell::rect() const {
    const QRect place = list_.view().visualRect(Index());
    return place.isValid() ? OnScreen(*list_.view().viewport(), place) : QRect();
}

QAccessible::Role AccessibleCell::role() const {
    return IsChoice() ? list_.manners().cell_role : QAccessible::ColumnHeader;
}

QAccessible::State AccessibleCell::state() const {
    const QAbstractItemView& view = list_.view();
    QAccessible::State state;
    state.invisible = !view.isVisible();
    state.offscreen = !view.viewport()->rect().intersects(view.visualRect(Index()));
    state.disabled = !view.isEnabled();
    if (!IsChoice()) return state;
    state.focusable = state.selectable = true;
    state.selected = isSelected();
    state.focused = view.hasFocus() && view.currentIndex() == Index();
    return state;
}

bool AccessibleCell::isSelected() const {
    return list_.view().selectionModel()->isSelected(Index());
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
    if (!list_.manners().has_column_headers) return {};
    return {list_.child(column_ + (list_.manners().has_row_headers ? 1 : 0))};
}

bool AccessibleCell::IsChoice() const {
    const auto& manners = list_.manners();
    return !manners.IsChoice || manners.IsChoice(Index());
}

QStringList AccessibleCell::actionNames() const {
    QStringList names;
    if (IsChoice() && list_.view().isEnabled())
        for (const CellAct& act : list_.manners().acts) names.push_back(act.name);
    return names;
}

void AccessibleCell::doAction(const QString& name) {
    const auto& acts = list_.manners().acts;
    const auto act = std::ranges::find(acts, name, &CellAct::name);
    if (act == acts.end() || !IsChoice()) return;
    list_.ActSoon(Index(), act->act);
}

QString AccessibleCell::localizedActionDescription(const QString& name) const {
    const auto& acts = list_.manners().acts;
    const auto act = std::ranges::find(acts, name, &CellAct::name);
    return act == acts.end() ? QString() : act->description;
}

QString AccessibleHeader::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name) return {};
    if (row_ < 0 && column_ < 0) return {};
    return row_ < 0 ? list_.columnDescription(column_) : list_.rowDescription(row_);
}

QRect AccessibleHeader::Place() const {
    const QHeaderView* headers = ColumnHeaders(list_.view());
    if (headers == nullptr || row_ >= 0 || column_ < 0 || headers->isHidden()) return {};
    return {headers->sectionViewportPosition(column_), 0, headers->sectionSize(column_),
            headers->height()};
}

QRect AccessibleHeader::rect() const {
    const QRect place = Place();
    return place.isValid() ? OnScreen(*ColumnHeaders(list_.view())->viewport(), place) : QRect();
}

QAccessible::Role AccessibleHeader::role() const {
    if (row_ < 0 && column_ < 0) return QAccessible::Pane;
    return row_ < 0 ? QAccessible::ColumnHeader : QAccessible::RowHeader;
}

QAccessible::State AccessibleHeader::state() const {
    QAccessible::State state;
    state.invisible = !list_.view().isVisible() || !Place().isValid();
    return state;
}

}  // namespace corvane::linux_desktop
