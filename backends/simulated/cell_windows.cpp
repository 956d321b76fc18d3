// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/cell_windows.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "simulated/cell_controls.h"

namespace corvane::simulated {
namespace {

/// The control that a person meets first; empty if nothing takes the focus.
std::string FirstInTabOrder(const ShownWindow& window) {
    const ControlDescription* first = nullptr;
    for (const ControlDescription& control : window.controls)
        if (control.tab_index != kNoTabStop &&
            (first == nullptr || control.tab_index < first->tab_index))
            first = &control;
    return first == nullptr ? std::string() : std::string(first->name);
}

ComputedPlace Computed(const TwipsRect& place) {
    return {static_cast<float>(place.left), static_cast<float>(place.top),
            static_cast<float>(place.width), static_cast<float>(place.height)};
}

class CellWindow final : public IWindowPeer {
public:
    CellWindow(CellWindows& windows, CallRecord& record, VirtualQueue& queue, SimulatedGdi& gdi,
               Screen& screen, std::shared_ptr<ShownWindow> window)
        : windows_(windows),
          record_(record),
          queue_(queue),
          gdi_(gdi),
          screen_(screen),
          window_(std::move(window)) {}
    ~CellWindow() override {
        window_->visible = false;
        screen_.Remove(window_->handle);
    }
    CellWindow(const CellWindow&) = delete;
    CellWindow& operator=(const CellWindow&) = delete;

    void AddFixture(const ControlDescription& control) override {
        window_->controls.push_back(control);
    }

    std::unique_ptr<ITextPeer> AddText(const ControlDescription& control,
                                       TextPeerEvents events) override {
        window_->texts[std::string(control.name)] = {std::string(control.text), 0, 0,
                                                     std::move(events), windows_.NewTextHandle()};
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
        window_->buttons[std::string(control.name)] = {true, control.enabled, false,
                                                       std::move(events)};
        return Place<CellButton>(control);
    }

    std::unique_ptr<IListPeer> AddList(const ControlDescription& control,
                                       const std::vector<std::string>& items,
                                       ListPeerEvents events) override {
        window_->lists[std::string(control.name)] = {items, -1, std::move(events)};
        return Place<CellList>(control);
    }

    std::unique_ptr<ICheckBoxPeer> AddCheckBox(const ControlDescription& control,
                                               CheckBoxPeerEvents events) override {
        window_->check_boxes[std::string(control.name)] = {control.checked, std::move(events)};
        return Place<CellCheckBox>(control);
    }

    std::unique_ptr<IListViewPeer> AddListView(const ControlDescription& control,
                                               ListViewPeerEvents events) override {
        ShownListView& shown = window_->list_views[std::string(control.name)];
        const auto parts = std::ranges::count(control.text, '\n');
        shown.columns.resize(static_cast<std::size_t>(parts) + 1);
        shown.place = Computed(control.place);
        shown.events = std::move(events);
        return Place<CellListView>(control);
    }

    std::unique_ptr<ICalendarPeer> AddCalendar(const ControlDescription& control,
                                               const CalendarDescription& calendar,
                                               CalendarPeerEvents events) override {
        window_->calendars[std::string(control.name)] = {
            calendar, calendar.date, Computed(control.place), std::move(events)};
        return Place<CellCalendar>(control);
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
        screen_.BringToFront(window_->handle);
        if (window_->focus.empty()) window_->focus = FirstInTabOrder(*window_);
        windows_.Activate(window_);
    }

    void ShowModal() override {
        record_.Call("ShowModal", Name());
        window_->visible = window_->modal = true;
        screen_.BringToFront(window_->handle);
        while (window_->visible) {
            if (queue_.Empty()) throw std::logic_error("nobody closes the modal " + Name());
            queue_.RunNext();
        }
        window_->modal = false;
    }

    void Hide() override {
        record_.Call("Hide", Name());
        window_->visible = false;
        screen_.LeaveFront(window_->handle);
    }

    void SetBorderStyle(BorderStyle style) override { window_->border = style; }
    WindowSize Size() const override { return window_->size; }

    std::optional<std::string> AskForFile(const FileDialogRequest& request) override {
        record_.Call("AskForFile", "\"" + request.title + "\" " + request.filter + " " +
                                       std::to_string(request.filter_index) + " " +
                                       std::to_string(request.flags));
        return windows_.OnFileDialog();
    }

    bool AskForPrinter(std::int32_t flags) override {
        record_.Call("AskForPrinter", std::to_string(flags));
        // A copy: the person may do something else the next time.
        const auto answer = windows_.OnPrintDialog;
        return answer();
    }

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

    CellWindows& windows_;
    CallRecord& record_;
    VirtualQueue& queue_;
    SimulatedGdi& gdi_;
    Screen& screen_;
    std::shared_ptr<ShownWindow> window_;
};

}  // namespace

CellWindows::CellWindows(CallRecord& record, VirtualQueue& queue, SimulatedGdi& gdi, Screen& screen)
    : record_(record), queue_(queue), gdi_(gdi), screen_(screen) {}

void ShownWindow::MoveFocus(const std::string& control) {
    const std::string before = std::exchange(focus, control);
    if (before == control) return;
    const auto list = list_views.find(before);
    if (list != list_views.end()) list->second.events.LostFocus();
    TellText(before, &TextPeerEvents::LostFocus);
    TellText(control, &TextPeerEvents::GotFocus);
}

void ShownWindow::TellText(const std::string& control,
                           std::function<void()> TextPeerEvents::*event) {
    const auto text = texts.find(control);
    if (text == texts.end()) return;
    if (const auto tell = text->second.events.*event) tell();
}

WindowSize CellWindows::WithFrame(int client_width, int client_height) {
    constexpr int kFrame = 60;
    constexpr int kTitleBar = 285;
    return {client_width, client_height, client_width + 2 * kFrame,
            client_height + 2 * kFrame + kTitleBar};
}

std::unique_ptr<IWindowPeer> CellWindows::CreateWindow(const WindowDescription& description,
                                                       WindowPeerEvents events) {
    auto window = std::make_shared<ShownWindow>();
    window->description = description;
    window->border = description.border;
    window->caption = description.caption;
    window->size = WithFrame(description.client_width, description.client_height);
    window->events = std::move(events);
    window->OnClose = [events = &window->events] { events->CloseRequested(); };
    screen_.TakeOwn(window);
    windows_[std::string(description.name)] = window;
    return std::make_unique<CellWindow>(*this, record_, queue_, gdi_, screen_, window);
}

void CellWindows::Activate(const std::shared_ptr<ShownWindow>& window) {
    const auto before = std::exchange(active_, window).lock();
    if (before == window) return;
    if (before && before->visible) before->TellText(before->focus, &TextPeerEvents::LostFocus);
    window->TellText(window->focus, &TextPeerEvents::GotFocus);
}

const ShownText* CellWindows::FindText(HWND control) const {
    for (const auto& [name, window] : windows_)
        for (const auto& [text_name, text] : window->texts)
            if (text.handle == control) return &text;
    return nullptr;
}

const ShownWindow& CellWindows::Window(const std::string& window) const {
    return *windows_.at(window);
}

}  // namespace corvane::simulated
