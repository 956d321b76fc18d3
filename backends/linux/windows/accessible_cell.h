// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "linux/windows/accessible_cells.h"

namespace corvane::linux_desktop {

/// What the cell and the headers around it have in common.
class AccessibleCellBase : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    /// The list must outlive what stands in it. A header has the row, the column or both of -1.
    AccessibleCellBase(const AccessibleCells& list, int row, int column)
        : list_(list), row_(row), column_(column) {}

    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return list_.window(); }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(list_.object());
    }
    [[nodiscard]] QAccessibleInterface* child(int /*number*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return column_; }
    [[nodiscard]] int rowIndex() const override { return row_; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return parent(); }

protected:
    const AccessibleCells& list_;
    int row_;
    int column_;
};

class AccessibleCell final : public AccessibleCellBase, public QAccessibleActionInterface {
public:
    using AccessibleCellBase::AccessibleCellBase;

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] bool isValid() const override { return Index().isValid(); }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }
    [[nodiscard]] QString localizedActionDescription(const QString& name) const override;

private:
    [[nodiscard]] QModelIndex Index() const { return list_.IndexOf(row_, column_); }
    [[nodiscard]] bool IsChoice() const;
};

/// A header, or the corner between those of rows and columns.
class AccessibleHeader final : public AccessibleCellBase {
public:
    using AccessibleCellBase::AccessibleCellBase;

    [[nodiscard]] bool isValid() const override { return true; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] bool isSelected() const override { return false; }

private:
    /// Its place in the view, whether it can be seen or not.
    [[nodiscard]] QRect Place() const;
};

}  // namespace corvane::linux_desktop
