// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

class QPrinter;

namespace corvane::linux_desktop {

/// Which printer prints, and how: as a person has confirmed it last, else the desktop's default
/// printer.
class PrinterChoice {
public:
    /// The printer for the next job. No printer raises kPrinterError, and so does a chosen one that
    /// is gone: its pages shall not come out somewhere else.
    [[nodiscard]] std::shared_ptr<QPrinter> Current() const;

    /// The same for a job that begins now. A file that a person chose in place of a printer serves
    /// one job: the next one would write over it unasked.
    [[nodiscard]] std::shared_ptr<QPrinter> ForJob();

    /// A printer to ask a person about, set to the one that would print now, if there is one.
    [[nodiscard]] std::shared_ptr<QPrinter> Proposal() const;

    void Confirm(std::shared_ptr<QPrinter> printer);

private:
    std::shared_ptr<QPrinter> confirmed_;
};

}  // namespace corvane::linux_desktop
