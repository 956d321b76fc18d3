// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <array>

#include "contract/printing_world.h"
#include "linux/printing/printer.h"
#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"
#include "support/print_server.h"

namespace corvane::testing {
namespace {

constexpr auto kControls = std::to_array<ControlDescription>(
    {{.name = "Pad", .kind = ControlKind::RichTextBox, .place = {0, 0, 3000, 3000}}});
constexpr WindowDescription kWindow{.name = "Window", .caption = "A pad", .controls = kControls};

class LinuxPrintingWorld final : public PrintingWorld {
public:
    IPrinter& printer() override { return printer_; }
    IGdi32& gdi32() override { return toolkit_.Gdi32(); }
    IUser32& user32() override { return user32_; }
    HWND TextBoxWith(const std::string& text) override {
        pad_->SetText(text);
        return pad_->hWnd();
    }
    std::vector<Job> Jobs() const override {
        std::vector<Job> jobs;
        for (const std::string& file : server_.Jobs()) {
            Job& job = jobs.emplace_back();
            for (const std::string& page : PagesOf(file)) job.push_back(WordsOf(page));
        }
        return jobs;
    }

private:
    struct Surroundings {
        Surroundings() {
            qputenv("QT_QPA_PLATFORM", "offscreen");
            HideOtherPrinters();
        }
    } surroundings_;
    PrintServer server_;
    int argc_ = 0;
    QApplication application_{argc_, nullptr};
    linux_desktop::QtToolkit toolkit_{"no pictures"};
    linux_desktop::User32 user32_{linux_desktop::MakeSessionWindows(), toolkit_.Controls(),
                                  toolkit_.Gdi32()};
    linux_desktop::Printer printer_{toolkit_.Gdi32(), toolkit_.ChosenPrinter()};
    std::unique_ptr<IWindowPeer> window_ = toolkit_.CreateWindow(kWindow, {});
    std::unique_ptr<ITextPeer> pad_ = window_->AddText(kControls[0], {});
};

}  // namespace

std::unique_ptr<PrintingWorld> MakePrintingWorld() {
    return std::make_unique<LinuxPrintingWorld>();
}

}  // namespace corvane::testing
