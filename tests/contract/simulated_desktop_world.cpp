// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "contract/desktop_world.h"
#include "simulated/simulated_desktop.h"

namespace corvane::testing {
namespace {

using simulated::ShowState;

class SimulatedDesktopWorld final : public DesktopWorld {
public:
    IUser32& user32() override { return desktop_.user32; }
    IWindowToolkit& toolkit() override { return desktop_.windows; }
    IClipboard& clipboard() override { return desktop_.clipboard; }

    HWND OpenOther(const std::string& caption) override { return desktop_.screen.Open(caption); }
    void CopyElsewhere(const std::string& text) override { desktop_.clipboard.Copy(text); }
    bool CanBeSeen(HWND window) override {
        const auto shown = desktop_.screen.Find(window);
        return shown && shown->visible && shown->state != ShowState::Minimised;
    }
    bool FillsTheScreen(HWND window) override {
        return desktop_.screen.At(window).state == ShowState::Maximised;
    }
    bool Becomes(const std::function<bool()>& holds) override {
        for (int tries = 0; tries < 100 && !holds(); ++tries)
            desktop_.RunFor(std::chrono::milliseconds(10));
        return holds();
    }

private:
    simulated::SimulatedDesktop desktop_;
};

}  // namespace

std::unique_ptr<DesktopWorld> MakeDesktopWorld() {
    return std::make_unique<SimulatedDesktopWorld>();
}

}  // namespace corvane::testing
