// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/cell_windows.h"

#include <stdexcept>
#include <string_view>
#include <utility>

#include "runtime/text.h"

namespace corvane::simulated {
namespace {

/// What all peers share: the window they stand in and their own name.
template <class Peer>
class CellControl : public Peer {
public:
    CellControl(CallRecord& record, std::shared_ptr<ShownWindow> window, std::string_view name)
        : record_(record), window_(std::move(window)), name_(name) {}

    void SetFocus() override {
        record_.Call("SetFocus", name_);
        window_->focus = name_;
    }

protected:
    CallRecord& record_;
    std::shared_ptr<ShownWindow> window_;
    std::string name_;
};

class CellText final : public CellControl<ITextPeer> {
public:
    using CellControl::CellControl;

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
};

class CellRange final : public CellControl<IRangePeer> {
public:
    using CellControl::CellControl;
    void SetValue(std::int32_t value) override { window_->ranges[name_] = value; }
};

class CellLabel final : public CellControl<ILabelPeer> {
public:
    using CellControl::CellControl;
    void SetCaption(const std::string& caption) override { window_->captions[name_] = caption; }
};

class CellPicture final : public CellControl<IPicturePeer> {
public:
    using CellControl::CellControl;
    void SetPicture(const std::string& name) override { window_->pictures[name_] = name; }
};

class CellButton final : public CellControl<IButtonPeer> {
public:
    using CellControl::CellControl;
    void SetVisible(bool visible) override { window_->buttons.at(name_).visible = visible; }
};

class CellWindow final : public IWindowPeer {
public:
    CellWindow(CallRecord& record, VirtualQueue& queue, SimulatedGdi& gdi,
               std::shared_ptr<ShownWindow> window)
        : record_(record), queue_(queue), gdi_(gdi), window_(std::move(window)) {}

    void AddFixture(const ControlDescription& control) override {
        window_->controls.push_back(control);
    }

    std::unique_ptr<ITextPeer> AddText(const ControlDescription& control,
                                       TextPeerEvents events) override {
        window_->texts[std::string(control.name)] = {std::string(control.text), 0, 0,
                                                     std::move(events)};
        return Place<CellText>(control);
    }

    std::unique_ptr<IRangePeer> AddRange(const ControlDescription& control) override {
        window_->ranges[std::string(control.name)] = 0;
        return Place<CellRange>(control);
    }

    std::unique_ptr<ILabelPeer> AddLabel(const ControlDescription& control) override {
        window_->captions[std::string(control.name)] = control.text;
        return Place<CellLabel>(control);
    }

    std::unique_ptr<IPicturePeer> AddPicture(const ControlDescription& control) override {
        window_->pictures[std::string(control.name)] = control.text;
        return Place<CellPicture>(control);
    }

    std::unique_ptr<IButtonPeer> AddButton(const ControlDescription& control,
                                           ButtonPeerEvents events) override {
        window_->buttons[std::string(control.name)] = {true, std::move(events)};
        return Place<CellButton>(control);
    }

    std::unique_ptr<IControlHost> AddControl(const ControlDescription& control) override {
        window_->controls.push_back(control);
        const auto shown = MakeShownControl(gdi_);
        window_->drawn[std::string(control.name)] = shown;
        return std::make_unique<ControlPlace>(gdi_, shown, window_->handle);
    }

    void AddMenu(const MenuDescription& menu, std::function<void()> Click) override {
        window_->menus.push_back(menu);
        window_->menu_clicks[std::string(menu.name)] = std::move(Click);
    }

    void Show() override {
        record_.Call("Show", Name());
        window_->visible = true;
    }

    void ShowModal() override {
        record_.Call("ShowModal", Name());
        window_->visible = window_->modal = true;
        while (window_->visible) {
            if (queue_.Empty()) throw std::logic_error("nobody closes the modal " + Name());
            queue_.RunNext();
        }
        window_->modal = false;
    }

    void Hide() override {
        record_.Call("Hide", Name());
        window_->visible = false;
    }

    void SetBorderStyle(BorderStyle style) override { window_->border = style; }
    HWND hWnd() const override { return window_->handle; }
    HICON hIcon() const override { return kIcon; }

private:
    static constexpr HICON kIcon = 7001;

    [[nodiscard]] std::string Name() const { return std::string(window_->description.name); }

    template <class Control>
    std::unique_ptr<Control> Place(const ControlDescription& control) {
        window_->controls.push_back(control);
        return std::make_unique<Control>(record_, window_, control.name);
    }

    CallRecord& record_;
    VirtualQueue& queue_;
    SimulatedGdi& gdi_;
    std::shared_ptr<ShownWindow> window_;
};

}  // namespace

CellWindows::CellWindows(CallRecord& record, VirtualQueue& queue, SimulatedGdi& gdi)
    : record_(record), queue_(queue), gdi_(gdi) {}

std::unique_ptr<IWindowPeer> CellWindows::CreateWindow(const WindowDescription& description,
                                                       WindowPeerEvents events) {
    constexpr HWND kFirstHandle = 4001;
    auto window = std::make_shared<ShownWindow>();
    window->description = description;
    window->handle = kFirstHandle + static_cast<HWND>(windows_.size());
    window->events = std::move(events);
    windows_[std::string(description.name)] = window;
    return std::make_unique<CellWindow>(record_, queue_, gdi_, window);
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

void CellWindows::Click(const std::string& window, const std::string& button) {
    windows_.at(window)->buttons.at(button).events.Click();
}

void CellWindows::StrikeOn(const std::string& window, const std::string& button,
                           std::int16_t code) {
    ShownWindow& shown = *windows_.at(window);
    shown.focus = button;
    shown.buttons.at(button).events.KeyDown(code, 0);
}

void CellWindows::ClickMenu(const std::string& window, const std::string& menu) {
    windows_.at(window)->menu_clicks.at(menu)();
}

void CellWindows::CloseByFrame(const std::string& window) {
    windows_.at(window)->events.CloseRequested();
}

}  // namespace corvane::simulated
