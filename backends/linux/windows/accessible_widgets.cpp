// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/accessible_widgets.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QTableView>
#include <utility>

#include "linux/canvas/control_view.h"
#include "linux/windows/accessible_cells.h"
#include "linux/windows/list_widget.h"
#include "linux/windows/month_calendar.h"
#include "linux/windows/painted_widgets.h"
#include "linux/windows/picture_view.h"
#include "linux/windows/row_list.h"

namespace corvane::linux_desktop {
namespace {

CellAct Select(std::function<void(const QModelIndex&)> act) {
    return {QStringLiteral("Select"), QStringLiteral("Chooses it, as a click does"),
            std::move(act)};
}

CellAct Activate(std::function<void(const QModelIndex&)> act) {
    return {QStringLiteral("Activate"), QStringLiteral("Does what a double click does"),
            std::move(act)};
}

CellManners MannersOf(ListWidget& list) {
    return {.view_role = QAccessible::List,
            .cell_role = QAccessible::ListItem,
            .acts = {Select([&list](const QModelIndex& item) { list.setCurrentIndex(item); }),
                     Activate([&list](const QModelIndex& item) { list.DoubleClickItem(item); })}};
}

CellManners MannersOf(RowList& list) {
    return {
        .view_role = QAccessible::Table,
        .cell_role = QAccessible::Cell,
        .has_column_headers = true,
        .acts = {Select([&list](const QModelIndex& cell) { list.ClickRow(cell.row()); }),
                 Activate([&list](const QModelIndex& cell) { list.DoubleClickRow(cell.row()); })}};
}

/// The days of the month that is shown, below the names of the days of the week. The toolkit has
/// headers around them, too, which are never seen.
CellManners MannersOf(MonthCalendar& calendar) {
    return {.view_role = QAccessible::Table,
            .cell_role = QAccessible::Cell,
            .has_column_headers = true,
            .has_row_headers = true,
            .acts = {Select([&calendar](const QModelIndex& cell) {
                calendar.setSelectedDate(calendar.DateAt(cell));
            })},
            .Name =
                [&calendar](const QModelIndex& cell) {
                    const QDate date = calendar.DateAt(cell);
                    return date.isValid() ? QLocale().toString(date, QLocale::LongFormat)
                                          : cell.data().toString();
                },
            .IsChoice =
                [&calendar](const QModelIndex& cell) { return calendar.DateAt(cell).isValid(); }};
}

class AccessibleGauge final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleGauge(ControlView& view)
        : QAccessibleWidget(&view, QAccessible::ProgressBar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }
    [[nodiscard]] QVariant currentValue() const override {
        return static_cast<ControlView&>(*widget()).Percentage();
    }
    /// It shows, and cannot be set.
    void setCurrentValue(const QVariant& /*value*/) override {}
    [[nodiscard]] QVariant maximumValue() const override { return 100; }
    [[nodiscard]] QVariant minimumValue() const override { return 0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }
};

/// The picture beside a message says what kind of message it is.
class AccessibleMessageIcon final : public QAccessibleWidget {
public:
    AccessibleMessageIcon(QLabel& picture, const QMessageBox& box)
        : QAccessibleWidget(&picture, QAccessible::Graphic), box_(box) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
        switch (box_.icon()) {
            case QMessageBox::Critical:
                return QStringLiteral("Error");
            case QMessageBox::Warning:
                return QStringLiteral("Warning");
            case QMessageBox::Question:
                return QStringLiteral("Question");
            case QMessageBox::Information:
                return QStringLiteral("Information");
            case QMessageBox::NoIcon:
                break;
        }
        return {};
    }

private:
    const QMessageBox& box_;
};

/// The message box that the picture stands in; nullptr for other labels.
const QMessageBox* BoxOfIcon(const QLabel& label) {
    if (label.objectName() != QStringLiteral("qt_msgboxex_icon_label")) return nullptr;
    return qobject_cast<const QMessageBox*>(label.parent());
}

QAccessibleInterface* MakeAccessible(const QString& /*class_name*/, QObject* object) {
    if (auto* list = dynamic_cast<ListWidget*>(object))
        return new AccessibleCells(*list, MannersOf(*list));
    if (auto* rows = dynamic_cast<RowList*>(object))
        return new AccessibleCells(*rows, MannersOf(*rows));
    if (auto* gauge = dynamic_cast<ControlView*>(object)) return new AccessibleGauge(*gauge);
    if (auto* picture = dynamic_cast<PictureView*>(object))
        return new QAccessibleWidget(picture, QAccessible::Graphic);
    if (auto* label = qobject_cast<QLabel*>(object))
        if (const QMessageBox* box = BoxOfIcon(*label))
            return new AccessibleMessageIcon(*label, *box);
    if (auto* line = dynamic_cast<DividingLine*>(object))
        return new QAccessibleWidget(line, QAccessible::Separator);
    if (auto* days = qobject_cast<QTableView*>(object))
        if (auto* calendar = dynamic_cast<MonthCalendar*>(days->parent()))
            return new AccessibleCells(*days, MannersOf(*calendar));
    return nullptr;
}

}  // namespace

void TellOfOurWidgets() {
    QAccessible::installFactory(MakeAccessible);
}

void ForgetEarlyAnswers(QWidget& widget) {
    if (!QAccessible::isActive()) return;
    const auto forget = [](QWidget* asked) {
        QAccessibleInterface* early = QAccessible::queryAccessibleInterface(asked);
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
    };
    for (auto* view : widget.findChildren<QAbstractItemView*>()) forget(view);
    forget(&widget);
}

}  // namespace corvane::linux_desktop
