// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "simulated/call_record.h"
#include "simulated/control_place.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// What a text control shows: text in cells of one character each, and the marked cells.
struct ShownText {
    std::string text;
    std::int32_t start = 0;
    std::int32_t length = 0;
    TextPeerEvents events;
};

struct ShownButton {
    bool visible = true;
    ButtonPeerEvents events;
};

/// A window as a person sees it. Controls are found by their names.
struct ShownWindow {
    template <class Shown>
    using ByName = std::map<std::string, Shown, std::less<>>;

    bool visible = false;
    bool modal = false;
    WindowDescription description;
    BorderStyle border = BorderStyle::FixedSingle;
    HWND handle = 0;
    std::string focus;                         // the control that has it
    std::vector<ControlDescription> controls;  // in order of creation
    std::vector<MenuDescription> menus;
    ByName<ShownText> texts;
    ByName<ShownButton> buttons;
    ByName<std::int32_t> ranges;
    ByName<std::string> captions;
    ByName<std::string> pictures;
    ByName<std::shared_ptr<ShownControl>> drawn;
    ByName<std::function<void()>> menu_clicks;
    WindowPeerEvents events;
};

/// A toolkit of windows in memory, and the hands of the person in front of them.
class CellWindows final : public IWindowToolkit {
public:
    /// `queue` runs while a window is modal; `gdi` draws what draws itself.
    CellWindows(CallRecord& record, VirtualQueue& queue, SimulatedGdi& gdi);

    std::unique_ptr<IWindowPeer> CreateWindow(const WindowDescription& description,
                                              WindowPeerEvents events) override;

    /// Whether a window of that name has been created.
    [[nodiscard]] bool Exists(const std::string& window) const { return windows_.contains(window); }
    [[nodiscard]] const ShownWindow& Window(const std::string& window) const;

    /// A person puts the caret at the end of a text control and types.
    void Type(const std::string& window, const std::string& control, const std::string& text);
    void Click(const std::string& window, const std::string& button);
    /// A person gives a button the focus and strikes a key of that code.
    void StrikeOn(const std::string& window, const std::string& button, std::int16_t code);
    void ClickMenu(const std::string& window, const std::string& menu);
    void CloseByFrame(const std::string& window);

private:
    CallRecord& record_;
    VirtualQueue& queue_;
    SimulatedGdi& gdi_;
    std::map<std::string, std::shared_ptr<ShownWindow>> windows_;
};

}  // namespace corvane::simulated
