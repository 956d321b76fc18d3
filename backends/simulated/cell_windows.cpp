// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/cell_windows.h"

#include <utility>

#include "runtime/text.h"

namespace corvane::simulated {
namespace {

class CellText final : public ITextPeer {
public:
    CellText(CallRecord& record, std::shared_ptr<ShownWindow> window, std::string name)
        : record_(record), window_(std::move(window)), name_(std::move(name)) {}

    void SetFocus() override { record_.Call("SetFocus", name_); }

    void SetText(const std::string& text) override {
        record_.Quietly("SetText");
        ShownText& shown = window_->texts.at(name_);
        shown.text = text;
        shown.start = shown.length = 0;
    }

    void SetSelection(std::int32_t start, std::int32_t length) override {
        record_.Quietly("SetSelection");
        ShownText& shown = window_->texts.at(name_);
        shown.start = start;
        shown.length = length;
    }

private:
    CallRecord& record_;
    std::shared_ptr<ShownWindow> window_;
    std::string name_;
};

class CellWindow final : public IWindowPeer {
public:
    CellWindow(CallRecord& record, std::shared_ptr<ShownWindow> window, std::string name)
        : record_(record), window_(std::move(window)), name_(std::move(name)) {}

    void AddFixture(const ControlDescription& control) override {
        window_->controls.push_back(control);
    }

    std::unique_ptr<ITextPeer> AddText(const ControlDescription& control,
                                       TextPeerEvents events) override {
        window_->controls.push_back(control);
        const std::string name(control.name);
        window_->texts[name] = {std::string(control.text), 0, 0, std::move(events)};
        return std::make_unique<CellText>(record_, window_, name);
    }

    void AddMenu(const MenuDescription& menu, std::function<void()> Click) override {
        window_->menus.push_back(menu);
        window_->menu_clicks[std::string(menu.name)] = std::move(Click);
    }

    void Show() override {
        record_.Call("Show", name_);
        window_->visible = true;
    }

private:
    CallRecord& record_;
    std::shared_ptr<ShownWindow> window_;
    std::string name_;
};

}  // namespace

CellWindows::CellWindows(CallRecord& record) : record_(record) {}

std::unique_ptr<IWindowPeer> CellWindows::CreateWindow(const WindowDescription& description,
                                                       WindowPeerEvents events) {
    auto window = std::make_shared<ShownWindow>();
    window->caption = description.caption;
    window->client_width = description.client_width;
    window->client_height = description.client_height;
    window->events = std::move(events);
    const std::string name(description.name);
    windows_[name] = window;
    return std::make_unique<CellWindow>(record_, window, name);
}

const ShownWindow& CellWindows::Window(const std::string& window) const {
    return *windows_.at(window);
}

void CellWindows::Type(const std::string& window, const std::string& control,
                       const std::string& text) {
    ShownText& shown = windows_.at(window)->texts.at(control);
    shown.text += text;
    shown.start = Len(shown.text).rep();
    shown.length = 0;
    shown.events.Edited(shown.text, shown.start, shown.length);
}

void CellWindows::ClickMenu(const std::string& window, const std::string& menu) {
    windows_.at(window)->menu_clicks.at(menu)();
}

void CellWindows::CloseByFrame(const std::string& window) {
    windows_.at(window)->events.CloseRequested();
}

}  // namespace corvane::simulated
