// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "linux/printing/printed_page.h"
#include "platform/printer.h"

namespace corvane::linux_desktop {

class Gdi;
class PrinterChoice;

/// The desktop's printers, by Qt.
class Printer final : public IPrinter {
public:
    /// Both must outlive it. The page that is being printed is a context of the Gdi.
    Printer(Gdi& gdi, PrinterChoice& choice);
    ~Printer() override;

    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    void Print(const std::string& text) override;
    void SetScaleMode(ScaleMode mode) override { scale_mode_ = mode; }
    [[nodiscard]] float ScaleX(float width, ScaleMode from, ScaleMode to) const override;
    [[nodiscard]] float ScaleY(float height, ScaleMode from, ScaleMode to) const override;
    [[nodiscard]] Twips Width() const override;
    [[nodiscard]] Twips Height() const override;
    [[nodiscard]] float ScaleWidth() const override;
    [[nodiscard]] float ScaleHeight() const override;
    [[nodiscard]] HDC hDC() const override { return hdc_; }
    void NewPage() override;
    void EndDoc() override;

private:
    /// That of the job, or else the one on which the next job would come out.
    [[nodiscard]] std::shared_ptr<QPrinter> Device() const;
    void BeginPage();

    Gdi& gdi_;
    PrinterChoice& choice_;
    ScaleMode scale_mode_ = kScaleTwips;
    std::shared_ptr<QPrinter> device_;                 // of the job; none outside of one
    std::vector<std::unique_ptr<PrintedPage>> pages_;  // of the job
    HDC hdc_ = 0;                                      // of the last page, until it ends
    double next_line_ = 0;                             // on that page, in dots
};

}  // namespace corvane::linux_desktop
