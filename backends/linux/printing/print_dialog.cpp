// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/printing/print_dialog.h"

#include <QGroupBox>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>
#include <QToolButton>

#include "linux/printing/printer_choice.h"
#include "platform/controls.h"

namespace corvane::linux_desktop {
namespace {

/// Qt leaves them there although its option for them is off.
void HidePageNumbers(QPrintDialog& dialog) {
    const auto* range = dialog.findChild<QGroupBox*>("gbPrintRange");
    if (range == nullptr) return;
    for (QWidget* choice : range->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (choice->objectName() != "printAll" && choice->objectName() != "printSelection")
            choice->hide();
}

/// It bears three dots, which say nothing to those who do not see what stands beside them.
void NameFileButton(QPrintDialog& dialog) {
    if (auto* button = dialog.findChild<QToolButton*>("fileBrowser"))
        button->setAccessibleName(QStringLiteral("Choose the output file"));
}

/// Takes back what a person may have chosen of the pages, and leaves all else.
void PrintAllPages(QPrinter& printer) {
    printer.setPrintRange(QPrinter::AllPages);
    printer.setFromTo(0, 0);
    printer.setPageRanges({});
    // Names and values in turn, as the dialog hands them to the print server.
    constexpr auto kServerOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);
    QStringList options = printer.printEngine()->property(kServerOptions).toStringList();
    for (const char* name : {"page-set", "page-ranges"})
        for (qsizetype at = 0; (at = options.indexOf(name)) >= 0;) options.remove(at, 2);
    printer.printEngine()->setProperty(kServerOptions, options);
}

}  // namespace

bool AskHowToPrint(std::int32_t flags, PrinterChoice& choice, QWidget* holder) {
    const auto printer = choice.Proposal();
    QPrintDialog dialog(printer.get(), holder);
    NameFileButton(dialog);
    if ((flags & kNoPageNumbers) != 0) {
        dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
        HidePageNumbers(dialog);
    }
    dialog.setOption(QAbstractPrintDialog::PrintSelection, (flags & kPrintSelection) != 0);
    if ((flags & kPrintSelection) != 0) dialog.setPrintRange(QAbstractPrintDialog::Selection);
    if (dialog.exec() != QDialog::Accepted) return false;
    PrintAllPages(*printer);
    choice.Confirm(printer);
    return true;
}

}  // namespace corvane::linux_desktop
