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

std::int32_t SimulatedTray::SHEmptyRecycleBinA(HWND owner, const std::string& rootPath,
                                               std::uint32_t flags) {
    record_.Call("SHEmptyRecycleBinA",
                 std::to_string(owner) + " \"" + rootPath + "\" " + std::to_string(flags));
    const bool here = rootPath.empty() || rootPath == "C:\\";
    if (!here || RecycleBin.empty()) return 1;
    RecycleBin.clear();
    return 0;
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
