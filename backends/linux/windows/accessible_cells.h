// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QString>
#include <functional>
#include <map>
#include <vector>

namespace corvane::linux_desktop {

/// What is done with a cell, from the loop and not inside the asking program's call: it may open a
/// dialog.
using CellDeed = std::function<void(const QModelIndex&)>;

/// What can be done with a cell without mouse and keys.
struct CellAct {
    QString name;
    QString description;
    CellDeed act;
};

/// How the cells of a view are told to those who do not see them.
struct CellManners {
    QAccessible::Role view_role;
    QAccessible::Role cell_role;
    bool has_column_headers = false;
    bool has_row_headers = false;
    std::vector<CellAct> acts;
    /// The toolkit's text of the cell if it is empty.
    std::function<QString(const QModelIndex&)> Name{};
    /// Whether a cell is one of those that can be chosen; all are if it is empty.
    std::function<bool(const QModelIndex&)> IsChoice{};
};

/// A list or table for screen readers and for programs that act for a person. Unlike the toolkit's
/// own, its cells can do what a double click does, and are called what the manners say. Cells
/// follow each other row by row, headers first: the toolkit tells of a cell by that number.
class AccessibleCells final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    AccessibleCells(QAbstractItemView& view, CellManners manners);
    ~AccessibleCells() override;

    AccessibleCells(const AccessibleCells&) = delete;
    AccessibleCells& operator=(const AccessibleCells&) = delete;

    [[nodiscard]] QAbstractItemView& view() const;
    [[nodiscard]] const CellManners& manners() const { return manners_; }
    [[nodiscard]] QModelIndex IndexOf(int row, int column) const;
    /// Does something with a cell as soon as the loop runs, unless the cell is gone then, or the
    /// view can't be reached by mouse and keys either: disabled, or behind a dialog.
    void ActSoon(const QModelIndex& cell, CellDeed deed) const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int number) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int row) const override;
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    /// Nobody can: a list of which something is chosen keeps a choice.
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    [[nodiscard]] int Stride() const;
    void ForgetCells();

    CellManners manners_;
    // By their number. Readers keep what they know of a cell, so none is used for another place.
    mutable std::map<int, QAccessible::Id> cells_;
};

}  // namespace corvane::linux_desktop
