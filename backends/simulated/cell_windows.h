// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "simulated/call_record.h"
#include "simulated/control_place.h"
#include "simulated/screen.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// What a text control shows: text in cells of one character each, and the marked cells.
struct ShownText {
    std::string text;
    std::int32_t start = 0;
    std::int32_t length = 0;
    TextPeerEvents events;
    HWND handle = 0;
};

struct ShownList {
    std::vector<std::string> items;
    std::int32_t selected = -1;
    ListPeerEvents events;
};

struct ShownButton {
    bool visible = true;
    bool enabled = true;
    bool is_default = false;
    ButtonPeerEvents events;
};

struct ShownCheckBox {
    bool checked = false;
    CheckBoxPeerEvents events;
};

struct ShownListView {
    std::vector<std::vector<std::string>> rows;  // cells
    std::vector<float> columns;                  // widths in twips
    std::int32_t selected = kNoRow;
    bool hide_selection = true;
    std::int32_t brought_into_view = kNoRow;  // the last one that was
    ComputedPlace place;
    ListViewPeerEvents events;
};

struct ShownCalendar {
    CalendarDescription look;
    CalendarDate date;
    ComputedPlace place;
    CalendarPeerEvents events;
};

/// A window as a person sees it. Controls are found by their names.
struct ShownWindow : TopWindow {
    template <class Shown>
    using ByName = std::map<std::string, Shown, std::less<>>;

    void MoveFocus(const std::string& control);
    /// Raises that event of the control, if it is a text.
    void TellText(const std::string& control, std::function<void()> TextPeerEvents::*event);

    bool modal = false;
    WindowDescription description;
    BorderStyle border = BorderStyle::FixedSingle;
    WindowSize size;
    std::string focus;                         // the control that has it
    std::vector<ControlDescription> controls;  // in order of creation
    std::vector<MenuDescription> menus;
    ByName<ShownText> texts;
    ByName<ShownList> lists;
    ByName<ShownButton> buttons;
    ByName<ShownCheckBox> check_boxes;
    ByName<ShownListView> list_views;
    ByName<ShownCalendar> calendars;
    ByName<std::int32_t> ranges;
    ByName<std::string> captions;
    ByName<std::string> pictures;
    ByName<std::shared_ptr<ShownControl>> drawn;
    ByName<std::function<void()>> menu_clicks;
    WindowPeerEvents events;
};

/// A toolkit of windows in memory, and the hands of the person in front of them. The desktop's
/// frame around a window is 60 twips wide, its title bar 285 twips high. Operations that can be
/// told to fail: Show, ShowModal, Hide, SetFocus, SetText, SetSelection, SetPlace, AddRow, SetCell,
/// RemoveRow, SelectRow, SetDate, SetCaption, SetPicture, AskForFile, AskForPrinter,
/// ReplaceSelection.
class CellWindows final : public IWindowToolkit {
public:
    /// `queue` runs while a window is modal; `gdi` draws what draws itself; `screen` is shared with
    /// the windows of other programs.
    CellWindows(CallRecord& record, VirtualQueue& queue, SimulatedGdi& gdi, Screen& screen);

    std::unique_ptr<IWindowPeer> CreateWindow(const WindowDescription& description,
                                              WindowPeerEvents events) override;

    /// Whether a window of that name has been created.
    [[nodiscard]] bool Exists(const std::string& window) const { return windows_.contains(window); }
    [[nodiscard]] const ShownWindow& Window(const std::string& window) const;

    /// A person puts the caret at the end of a text control and types.
    void Type(const std::string& window, const std::string& control, const std::string& text);
    /// A person marks `length` characters from `start` on in a text control, or puts the caret
    /// there.
    void Mark(const std::string& window, const std::string& control, std::int32_t start,
              std::int32_t length);
    /// A person changes the text of a text control to another one; the caret stands behind it.
    void Retype(const std::string& window, const std::string& control, const std::string& text);
    /// A person double-clicks an item of a list, which selects it.
    void DoubleClick(const std::string& window, const std::string& list, const std::string& item);
    /// A person double-clicks below the items of a list, which selects nothing else.
    void DoubleClickBelow(const std::string& window, const std::string& list);
    /// A person empties a text control.
    void Erase(const std::string& window, const std::string& control);
    /// A click on a disabled button does nothing.
    void Click(const std::string& window, const std::string& button);
    /// A person presses Enter in a control that takes no part in it.
    void PressEnter(const std::string& window);
    void Check(const std::string& window, const std::string& check_box, bool checked);
    /// A person clicks on a row of a list, or beside the rows with kNoRow; the list then has the
    /// focus.
    void ClickRow(const std::string& window, const std::string& list, std::int32_t row);
    /// A double click, which is a click first.
    void DoubleClickRow(const std::string& window, const std::string& list, std::int32_t row);
    /// A person moves the selection with the arrow keys.
    void MoveToRow(const std::string& window, const std::string& list, std::int32_t row);
    /// A window takes the front, and its control the focus.
    void Activate(const std::shared_ptr<ShownWindow>& window);
    /// A person gives a control of the window the focus.
    void Focus(const std::string& window, const std::string& control);
    /// A person chooses a day, month or year on a calendar.
    void Choose(const std::string& window, const std::string& calendar, const CalendarDate& date);
    /// A person gives a sizable window another client area, in twips.
    void Resize(const std::string& window, int client_width, int client_height);
    /// What a person answers when asked for a file; cancels at first.
    std::function<std::optional<std::string>()> OnFileDialog = [] { return std::nullopt; };
    [[nodiscard]] HWND NewTextHandle() { return ++last_text_; }
    /// What a person does with the print dialog; cancels at first.
    std::function<bool()> OnPrintDialog = [] { return false; };
    /// The text control of that handle; nullptr if there is none in any window.
    [[nodiscard]] const ShownText* FindText(HWND control) const;
    /// A person gives a button the focus and strikes a key of that code.
    void StrikeOn(const std::string& window, const std::string& button, std::int16_t code);
    void ClickMenu(const std::string& window, const std::string& menu);
    void CloseByFrame(const std::string& window);

private:
    static WindowSize WithFrame(int client_width, int client_height);

    CallRecord& record_;
    VirtualQueue& queue_;
    SimulatedGdi& gdi_;
    Screen& screen_;
    std::map<std::string, std::shared_ptr<ShownWindow>> windows_;
    std::weak_ptr<ShownWindow> active_;
    HWND last_text_ = 6000;
};

}  // namespace corvane::simulated
