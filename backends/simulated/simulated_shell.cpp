// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_shell.h"

#include <algorithm>
#include <utility>

namespace corvane::simulated {
namespace {

class Browser final : public IInternetExplorer {
public:
    explicit Browser(CallRecord& record) : record_(record) {}
    void SetVisible(bool visible) override {
        record_.Call("ie.Visible", visible ? "true" : "false");
    }
    void Navigate2(const std::string& url) override { record_.Call("Navigate2", url); }

private:
    CallRecord& record_;
};

}  // namespace

SimulatedTray::SimulatedTray(CallRecord& record) : record_(record) {}

bool SimulatedTray::Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data) {
    record_.Call("Shell_NotifyIconA", dwMessage == NIM_ADD ? "NIM_ADD" : "NIM_DELETE");
    const auto same = std::ranges::find_if(icons_, [&](const NOTIFYICONDATA& icon) {
        return icon.hWnd == data.hWnd && icon.uID == data.uID;
    });
    if (dwMessage == NIM_ADD) {
        if (same != icons_.end()) return false;
        icons_.push_back(data);
        return true;
    }
    if (same == icons_.end()) return false;
    icons_.erase(same);
    return true;
}

SimulatedUser32::SimulatedUser32(CallRecord& record, const CellWindows& windows,
                                 SimulatedPrinter& printer)
    : record_(record), windows_(windows), printer_(printer) {}

bool SimulatedUser32::ReleaseCapture() {
    record_.Call("ReleaseCapture");
    return true;
}

std::int32_t SimulatedUser32::SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                           std::int32_t lParam) {
    record_.Call("SendMessageA", std::to_string(hWnd) + " " + std::to_string(msg) + " " +
                                     std::to_string(wParam) + " " + std::to_string(lParam));
    return 0;
}

std::int32_t SimulatedUser32::SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                           const FORMATRANGE* range) {
    const ShownText* text = windows_.FindText(hWnd);
    if (msg != EM_FORMATRANGE || text == nullptr) return 0;
    if (range != nullptr) return printer_.FormatRange(hWnd, text->text, wParam != 0, *range);
    record_.Call("FreeLayout");
    printer_.FreeLayout(hWnd);
    return 0;
}

std::int32_t SimulatedUser32::GetSysColor(std::int32_t index) {
    const auto set = colours_.find(index);
    return set == colours_.end() ? index * 0x010101 : set->second;
}

SimulatedAutomation::SimulatedAutomation(CallRecord& record) : record_(record) {}

std::shared_ptr<IInternetExplorer> SimulatedAutomation::CreateInternetExplorer(
    InternetExplorerEvents events) {
    record_.Call("CreateInternetExplorer");
    browser_ = std::move(events);
    return std::make_shared<Browser>(record_);
}

void SimulatedAutomation::QuitBrowser() {
    browser_.OnQuit();
}

}  // namespace corvane::simulated
