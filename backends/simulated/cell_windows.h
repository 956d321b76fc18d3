// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "simulated/call_record.h"

namespace corvane::simulated {

/// What a text control shows: text in cells of one character each, and the marked cells.
struct ShownText {
    std::string text;
    std::int32_t start = 0;
    std::int32_t length = 0;
    TextPeerEvents events;
};

/// A window as a person sees it.
struct ShownWindow {
    bool visible = false;
    std::string caption;
    int client_width = 0, client_height = 0;   // twips
    std::vector<ControlDescription> controls;  // in order of creation
    std::map<std::string, ShownText, std::less<>> texts;
    std::vector<MenuDescription> menus;
    std::map<std::string, std::function<void()>, std::less<>> menu_clicks;
    WindowPeerEvents events;
};

/// A toolkit of windows in memory, and the hands of the person in front of them.
class CellWindows final : public IWindowToolkit {
public:
    explicit CellWindows(CallRecord& record);

    std::unique_ptr<IWindowPeer> CreateWindow(const WindowDescription& description,
                                              WindowPeerEvents events) override;

    /// Whether a window of that name has been created.
    [[nodiscard]] bool Exists(const std::string& window) const { return windows_.contains(window); }
    [[nodiscard]] const ShownWindow& Window(const std::string& window) const;

    /// A person puts the caret at the end of a text control and types.
    void Type(const std::string& window, const std::string& control, const std::string& text);
    void ClickMenu(const std::string& window, const std::string& menu);
    void CloseByFrame(const std::string& window);

private:
    CallRecord& record_;
    std::map<std::string, std::shared_ptr<ShownWindow>> windows_;
};

}  // namespace corvane::simulated
