// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/printing/print_dialog.h"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QScopeGuard>

#include "linux/printing/printer_choice.h"
#include "platform/controls.h"

namespace corvane::linux_desktop {

bool AskHowToPrint(std::int32_t flags, PrinterChoice& choice, QWidget* holder) {
    const auto printer = choice.Proposal();
    // The holder may go while a person thinks, and takes the dialog along.
    const QPointer<QPrintDialog> dialog = new QPrintDialog(printer.get(), holder);
    const auto close = qScopeGuard([&] { delete dialog.data(); });
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, (flags & kNoPageNumbers) == 0);
    dialog->setOption(QAbstractPrintDialog::PrintSelection, (flags & kPrintSelection) != 0);
    if ((flags & kPrintSelection) != 0) dialog->setPrintRange(QAbstractPrintDialog::Selection);
    if (dialog->exec() != QDialog::Accepted) return false;
    // Which pages are printed is not the dialog's to say.
    printer->setPrintRange(QPrinter::AllPages);
    printer->setFromTo(0, 0);
    choice.Confirm(printer);
    return true;
}

}  // namespace corvane::linux_desktop
