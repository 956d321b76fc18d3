// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <array>

#include "contract/printing_world.h"
#include "simulated/simulated_desktop.h"

namespace corvane::testing {
namespace {

constexpr auto kControls = std::to_array<ControlDescription>(
    {{.name = "Pad", .kind = ControlKind::RichTextBox, .place = {0, 0, 3000, 3000}}});
constexpr WindowDescription kWindow{.name = "Window", .caption = "A pad", .controls = kControls};

class SimulatedPrintingWorld final : public PrintingWorld {
public:
    IPrinter& printer() override { return desktop_.printer; }
    IGdi32& gdi32() override { return desktop_.gdi; }
    IUser32& user32() override { return desktop_.user32; }
    HWND TextBoxWith(const std::string& text) override {
        pad_->SetText(text);
        return pad_->hWnd();
    }
    std::vector<Job> Jobs() const override {
        std::vector<Job> jobs;
        for (const simulated::PrintedJob& printed : desktop_.printer.Jobs()) {
            Job& job = jobs.emplace_back();
            for (const simulated::PrintedPage& page : printed) {
                std::string text = page.printed;
                for (const std::string& line : page.lines) text += line + "\n";
                job.push_back(WordsOf(text));
            }
        }
        return jobs;
    }

private:
    simulated::SimulatedDesktop desktop_;
    std::unique_ptr<IWindowPeer> window_ = desktop_.windows.CreateWindow(kWindow, {});
    std::unique_ptr<ITextPeer> pad_ = window_->AddText(kControls[0], {});
};

}  // namespace

std::unique_ptr<PrintingWorld> MakePrintingWorld() {
    return std::make_unique<SimulatedPrintingWorld>();
}

}  // namespace corvane::testing
