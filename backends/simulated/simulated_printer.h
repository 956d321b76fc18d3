// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "platform/printer.h"
#include "platform/rich_edit.h"
#include "platform/user32.h"
#include "simulated/call_record.h"
#include "simulated/drawn_surfaces.h"

namespace corvane::simulated {

struct PrintedPage {
    std::string printed;             ///< what Print put there
    std::vector<std::string> lines;  ///< what text was laid out there, line by line
    RECT place;                      ///< of the text, from the paper's corner, in twips
};

using PrintedJob = std::vector<PrintedPage>;

/// A printer for letter paper with 600 dots an inch across and 300 down, a quarter inch that can't
/// be printed on at the left and right and a sixth at the top and bottom. Letters are cells of 120
/// by 240 twips. Operations that can be told to fail: Printer.Print, Printer.ScaleX,
/// Printer.ScaleY, Printer.Width, Printer.Height, Printer.ScaleWidth, Printer.ScaleHeight,
/// Printer.hDC, Printer.NewPage, Printer.EndDoc.
class SimulatedPrinter final : public IPrinter {
public:
    SimulatedPrinter(CallRecord& record, SimulatedGdi& gdi);

    void Print(const std::string& text) override;
    void SetScaleMode(ScaleMode mode) override;
    [[nodiscard]] float ScaleX(float width, ScaleMode from, ScaleMode to) const override;
    [[nodiscard]] float ScaleY(float height, ScaleMode from, ScaleMode to) const override;
    [[nodiscard]] Twips Width() const override;
    [[nodiscard]] Twips Height() const override;
    [[nodiscard]] float ScaleWidth() const override;
    [[nodiscard]] float ScaleHeight() const override;
    [[nodiscard]] HDC hDC() const override;
    void NewPage() override;
    void EndDoc() override;

    /// Lays out that text of the control, as IUser32 says of EM_FORMATRANGE.
    std::int32_t FormatRange(HWND control, const std::string& text, bool draw,
                             const FORMATRANGE& range);
    void FreeLayout(HWND control) { layouts_.erase(control); }

    /// The jobs that have come out.
    [[nodiscard]] const std::vector<PrintedJob>& Jobs() const { return jobs_; }
    /// Whether a job has begun that has not ended.
    [[nodiscard]] bool InJob() const { return !job_.empty(); }
    /// Controls whose layout is kept.
    [[nodiscard]] const std::set<HWND>& Layouts() const { return layouts_; }

private:
    /// Raises if the operation was told to fail, and the job is lost then.
    void Work(const std::string& operation, const std::string& arguments = {});

    CallRecord& record_;
    SimulatedGdi& gdi_;
    ScaleMode scale_mode_ = kScaleTwips;
    PrintedJob job_;
    HDC page_ = 0;
    std::vector<PrintedJob> jobs_;
    std::set<HWND> layouts_;
};

}  // namespace corvane::simulated
