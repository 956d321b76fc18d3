// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// What a person does to the windows.

#include <algorithm>
#include <stdexcept>

#include "runtime/text.h"
#include "simulated/cell_windows.h"

namespace corvane::simulated {

void CellWindows::Type(const std::string& window, const std::string& control,
                       const std::string& text) {
    Retype(window, control, windows_.at(window)->texts.at(control).text + text);
}

void CellWindows::Retype(const std::string& window, const std::string& control,
                         const std::string& text) {
    ShownText& shown = windows_.at(window)->texts.at(control);
    shown.text = text;
    shown.start = Len(shown.text).rep();
    shown.length = 0;
    shown.events.Edited(shown.text, shown.start, shown.length);
}

void CellWindows::Mark(const std::string& window, const std::string& control, std::int32_t start,
                       std::int32_t length) {
    ShownText& shown = windows_.at(window)->texts.at(control);
    shown.start = start;
    shown.length = length;
    shown.events.Edited(shown.text, shown.start, shown.length);
}

void CellWindows::DoubleClick(const std::string& window, const std::string& list,
                              const std::string& item) {
    ShownList& shown = windows_.at(window)->lists.at(list);
    const auto found = std::ranges::find(shown.items, item);
    if (found == shown.items.end()) throw std::logic_error("no item " + item + " in " + list);
    shown.selected = static_cast<std::int32_t>(found - shown.items.begin());
    shown.events.Selected(shown.selected);
    shown.events.DblClick();
}

void CellWindows::DoubleClickBelow(const std::string& window, const std::string& list) {
    windows_.at(window)->lists.at(list).events.DblClick();
}

void CellWindows::Erase(const std::string& window, const std::string& control) {
    ShownText& shown = windows_.at(window)->texts.at(control);
    shown.text.clear();
    shown.start = shown.length = 0;
    shown.events.Edited({}, 0, 0);
}

void CellWindows::Click(const std::string& window, const std::string& button) {
    const auto shown = windows_.at(window);
    if (!shown->buttons.at(button).enabled) return;
    Focus(window, button);
    shown->buttons.at(button).events.Click();
}

void CellWindows::PressEnter(const std::string& window) {
    const auto shown = windows_.at(window);
    for (const auto& [name, button] : shown->buttons)
        if (button.is_default && button.enabled) return button.events.Click();
}

void CellWindows::Check(const std::string& window, const std::string& check_box, bool checked) {
    const auto shown = windows_.at(window);
    Focus(window, check_box);
    shown->check_boxes.at(check_box).checked = checked;
    shown->check_boxes.at(check_box).events.Click(checked);
}

void CellWindows::ClickRow(const std::string& window, const std::string& list, std::int32_t row) {
    const auto shown = windows_.at(window);
    Focus(window, list);
    if (row != kNoRow) shown->list_views.at(list).selected = row;
    shown->list_views.at(list).events.Click(row);
}

void CellWindows::DoubleClickRow(const std::string& window, const std::string& list,
                                 std::int32_t row) {
    const auto shown = windows_.at(window);
    ClickRow(window, list, row);
    // The second press marks the row again, wherever the first one has led.
    if (row != kNoRow) shown->list_views.at(list).selected = row;
    shown->list_views.at(list).events.DblClick(row);
}

void CellWindows::MoveToRow(const std::string& window, const std::string& list, std::int32_t row) {
    const auto shown = windows_.at(window);
    Focus(window, list);
    shown->list_views.at(list).selected = row;
    shown->list_views.at(list).events.Select(row);
}

void CellWindows::Focus(const std::string& window, const std::string& control) {
    Activate(windows_.at(window));
    windows_.at(window)->MoveFocus(control);
}

void CellWindows::Choose(const std::string& window, const std::string& calendar,
                         const CalendarDate& date) {
    const auto shown = windows_.at(window);
    shown->calendars.at(calendar).date = date;
    shown->calendars.at(calendar).events.Chosen(date);
}

void CellWindows::Resize(const std::string& window, int client_width, int client_height) {
    const auto shown = windows_.at(window);
    shown->size = WithFrame(client_width, client_height);
    shown->events.Resized(shown->size);
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
