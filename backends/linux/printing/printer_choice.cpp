// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/printing/printer_choice.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <utility>

#include "linux/printing/printer_error.h"

namespace corvane::linux_desktop {
namespace {

std::shared_ptr<QPrinter> Make(const QPrinterInfo& info) {
    return std::make_shared<QPrinter>(info, QPrinter::HighResolution);
}

bool IsFile(const QPrinter& printer) {
    return !printer.outputFileName().isEmpty();
}

/// Without a printer Qt would quietly print into a file of its own choice.
std::shared_ptr<QPrinter> DefaultPrinter() {
    const QPrinterInfo preferred = QPrinterInfo::defaultPrinter();
    if (!preferred.isNull()) return Make(preferred);
    const auto names = QPrinterInfo::availablePrinterNames();
    if (names.isEmpty()) RaisePrinterError();
    return Make(QPrinterInfo::printerInfo(names.first()));
}

}  // namespace

std::shared_ptr<QPrinter> PrinterChoice::Current() const {
    if (!confirmed_) return DefaultPrinter();
    if (!IsFile(*confirmed_) &&
        !QPrinterInfo::availablePrinterNames().contains(confirmed_->printerName()))
        RaisePrinterError();
    return confirmed_;
}

std::shared_ptr<QPrinter> PrinterChoice::ForJob() {
    std::shared_ptr<QPrinter> printer = Current();
    if (IsFile(*printer)) confirmed_.reset();
    return printer;
}

std::shared_ptr<QPrinter> PrinterChoice::Proposal() const {
    const QPrinterInfo last =
        confirmed_ ? QPrinterInfo::printerInfo(confirmed_->printerName()) : QPrinterInfo();
    if (last.isNull()) return Make(QPrinterInfo::defaultPrinter());
    // All that the last one was confirmed with: it is what a cancelled dialog prints with.
    auto proposal = Make(last);
    proposal->setPageLayout(confirmed_->pageLayout());
    proposal->setCopyCount(confirmed_->copyCount());
    proposal->setCollateCopies(confirmed_->collateCopies());
    proposal->setDuplex(confirmed_->duplex());
    proposal->setColorMode(confirmed_->colorMode());
    return proposal;
}

void PrinterChoice::Confirm(std::shared_ptr<QPrinter> printer) {
    confirmed_ = std::move(printer);
}

}  // namespace corvane::linux_desktop
