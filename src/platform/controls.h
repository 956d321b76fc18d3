// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/control_host.h"
#include "platform/user32.h"

/// Windows and their controls as the window toolkit sees them: described once by plain records,
/// then reached through peers that show what the system's own controls hold. All on the loop's
/// thread.
namespace corvane {

/// 1440 twips are an inch; 15 are one pixel of an unscaled screen.
inline constexpr int kTwipsPerPixel = 15;

/// A place inside a window's client area, or inside the frame that holds the control. In twips.
struct TwipsRect {
    int left = 0, top = 0, width = 0, height = 0;
    friend bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

enum class ControlKind {
    ListBox,    ///< sorted list of texts, one a line
    ImageList,  ///< pictures for other controls; nothing to see
    Frame,      ///< box with a caption that holds other controls
    PictureBox,
    Image,  ///< a picture stretched to its place
    Label,
    CentredLabel,
    Timer,  ///< nothing to see
    Gauge,  ///< the system's own round gauge
    TextBox,
    MultilineTextBox,  ///< several lines, vertical scroll bar
    RichTextBox,
    ProgressBar,    ///< 0 to 100
    CommandButton,  ///< "&" in its caption stands in front of its access key
    CheckBox,
    ListView,      ///< rows under column headers; `text` is the headers, parted by LF
    Calendar,      ///< one month of a year, a day of it marked
    CommonDialog,  ///< nothing to see until it is shown
    Line,          ///< from left, top to left + width, top + height
};

enum class ControlColours {
    System,
    WhiteOnBlack,
    MenuBackground,  ///< the system's menu colour behind the text
    RedOnYellow,
};

inline constexpr int kNoTabStop = -1;

struct ControlDescription {
    std::string_view name;
    ControlKind kind;
    TwipsRect place;
    int tab_index = kNoTabStop;
    std::string_view text = {};       ///< caption, content or picture; lists are parted by LF
    std::string_view container = {};  ///< name of the frame that holds it; empty: the window itself
    ControlColours colours = ControlColours::System;
    std::string_view tool_tip = {};
    std::string_view role = {};  ///< what it shows, in words, for people who do not see it
    /// Of a text of several lines: false if what is marked in it can be seen wherever the focus is.
    bool hide_selection = true;
    std::string_view picture = {};      ///< of a button: stands above its caption
    bool enabled = true;                ///< of a button, at first
    bool checked = false;               ///< of a check box, at first
    std::string_view font_family = {};  ///< of a label; empty: the window's
    bool bold = false;                  ///< of a label
};

struct MenuDescription {
    std::string_view name;
    std::string_view caption;    ///< "&" in front of the access key; "-" alone is a separator
    std::string_view menu = {};  ///< name of the menu that holds it; empty: it is a menu of the bar
};

enum class BorderStyle { None = 0, FixedSingle = 1, Sizable = 2 };

enum class StartPosition { SystemDefault, CentreOfScreen };

struct WindowDescription {
    std::string_view name;
    std::string_view caption;
    int client_width = 0;   ///< twips, below the menu bar
    int client_height = 0;  ///< twips
    std::span<const ControlDescription> controls;
    StartPosition position = StartPosition::SystemDefault;
    bool white_background = false;  ///< otherwise the system's colour of windows
    BorderStyle border = BorderStyle::FixedSingle;
};

/// In twips. The outer size includes the frame that the desktop draws; before the desktop has drawn
/// it, it may be the client area's alone.
struct WindowSize {
    int client_width = 0, client_height = 0;
    int outer_width = 0, outer_height = 0;
    friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

/// Where the system has put a control in its window, in twips. Between two pixels the nearer one is
/// meant.
struct ComputedPlace {
    float left = 0, top = 0, width = 0, height = 0;
    friend bool operator==(const ComputedPlace&, const ComputedPlace&) = default;
};

class IControlPeer {
public:
    virtual ~IControlPeer() = default;
    virtual void SetFocus() = 0;
};

/// Positions count characters of the text, CR LF as two.
class ITextPeer : public IControlPeer {
public:
    virtual void SetText(const std::string& text) = 0;
    /// Marks `length` characters from `start` on (from 0), and brings the place into view.
    virtual void SetSelection(std::int32_t start, std::int32_t length) = 0;
    /// Puts `text` in the place of what is marked, or at the caret; the caret stands behind it then
    /// and is in view. Text beside it keeps its looks.
    virtual void ReplaceSelection(const std::string& text) = 0;
    /// The control by itself, for messages to it; another one than the window's.
    [[nodiscard]] virtual HWND hWnd() const = 0;
};

class IRangePeer : public IControlPeer {
public:
    /// 0 to 100.
    virtual void SetValue(std::int32_t value) = 0;
};

class ILabelPeer : public IControlPeer {
public:
    virtual void SetCaption(const std::string& caption) = 0;
};

class IPicturePeer : public IControlPeer {
public:
    /// A picture by its name among the program's pictures; an unknown or empty one shows nothing.
    virtual void SetPicture(const std::string& name) = 0;
};

class IListPeer : public IControlPeer {};

struct ListPeerEvents {
    /// A person has selected another item, counted from 0; -1 is none.
    std::function<void(std::int32_t index)> Selected;
    /// A person double-clicks into the list, be it beside its items; behind Selected.
    std::function<void()> DblClick;
};

class IButtonPeer : public IControlPeer {
public:
    virtual void SetVisible(bool visible) = 0;
    /// A disabled button takes no clicks, no keys and no focus.
    virtual void SetEnabled(bool enabled) = 0;
    /// Enter presses the default button wherever the focus is, but for other buttons and texts of
    /// several lines.
    virtual void SetDefault(bool is_default) = 0;
};

class ICheckBoxPeer : public IControlPeer {
public:
    virtual void SetChecked(bool checked) = 0;
};

struct CheckBoxPeerEvents {
    /// A person has turned the mark on or off. Never called for what the system itself set.
    std::function<void(bool checked)> Click;
};

class IMovablePeer : public IControlPeer {
public:
    virtual void SetPlace(const ComputedPlace& place) = 0;
};

inline constexpr std::int32_t kNoRow = -1;

/// Rows and columns count from 0; whoever calls keeps within what is there.
class IListViewPeer : public IMovablePeer {
public:
    /// In twips. The last column takes whatever room is left.
    virtual void SetColumnWidth(std::int32_t column, float width) = 0;
    /// Puts a row behind the others, empty but for its first column.
    virtual void AddRow(const std::string& text) = 0;
    virtual void SetCell(std::int32_t row, std::int32_t column, const std::string& text) = 0;
    virtual void RemoveRow(std::int32_t row) = 0;
    virtual void RemoveAllRows() = 0;
    /// Marks that row in place of any other; kNoRow marks none.
    virtual void SelectRow(std::int32_t row) = 0;
    virtual void BringIntoView(std::int32_t row) = 0;
    /// Whether the mark is out of sight while the list does not have the focus.
    virtual void SetHideSelection(bool hide) = 0;
};

/// What a person does with a list; `row` is the one that is marked by it, kNoRow when the mark
/// stays where it is. A double click is told as a click and then as a double click.
struct ListViewPeerEvents {
    std::function<void(std::int32_t row)> Click;
    std::function<void(std::int32_t row)> DblClick;
    /// The mark was moved by keys.
    std::function<void(std::int32_t row)> Select;
    /// The focus has gone to another control of the window.
    std::function<void()> LostFocus;
};

struct FontDescription {
    std::string_view family;
    double points = 8.25;
    bool bold = false;
};

/// A day of a month that has it; year 1900 to 2100, month and day from 1.
struct CalendarDate {
    int year = 1900, month = 1, day = 1;
    friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

/// What a calendar looks like, and the day on which it opens. Colours are 0x00BBGGRR.
struct CalendarDescription {
    CalendarDate date;
    FontDescription day_font{};    ///< the names of the week's days
    FontDescription grid_font{};   ///< the days of the month
    FontDescription title_font{};  ///< month and year
    std::int32_t grid_colour = 0;
    std::int32_t title_colour = 0;
};

class ICalendarPeer : public IMovablePeer {
public:
    /// Shows the month of that day and marks the day.
    virtual void SetDate(const CalendarDate& date) = 0;
};

struct CalendarPeerEvents {
    /// A person has chosen another day, month or year. Never called for what the system itself set.
    std::function<void(const CalendarDate& date)> Chosen;
};

/// How a person is asked for a file. Named after the common dialog's own numbers.
enum FileDialogFlags : std::int32_t {
    kOverwritePrompt = 2,
    kPathMustExist = 2048,
    kFileMustExist = 4096,
    kNoReadOnlyReturn = 32768,
};

struct FileDialogRequest {
    std::string title;
    /// Captions and patterns in turn, parted by "|". The pattern "*.exe" stands for whatever can be
    /// started here, installed applications included.
    std::string filter;
    std::int32_t filter_index = 1;  ///< the filter that is on at first; counts from 1
    std::int32_t flags = 0;         ///< a sum of FileDialogFlags
};

/// What is asked of the print dialog. Named after the common dialog's own numbers.
enum PrintDialogFlags : std::int32_t {
    kPrintSelection = 1,  ///< the selection alone is offered first; otherwise all pages are
    kNoPageNumbers = 8,   ///< no choice of pages by number
    kReturnDC = 256,      ///< a device context is wanted
};

struct ButtonPeerEvents {
    std::function<void()> Click;
    /// A key goes down while the button has the focus. `code` is the window system's key code of
    /// Windows (40 is the down arrow, letters are their capitals), `shift` 1 for Shift, 2 Ctrl, 4
    /// Alt. When the focus has gone elsewhere on return, the button takes no part in the key.
    std::function<void(std::int16_t code, std::int16_t shift)> KeyDown;
};

struct TextPeerEvents {
    /// A person has changed the text or the selection. Never called for what the system itself set.
    std::function<void(const std::string& text, std::int32_t start, std::int32_t length)> Edited;
    /// The control has taken the focus from another one of the system, by a person or by SetFocus;
    /// also when its window is shown with the focus on it. May be empty.
    std::function<void()> GotFocus{};
    /// Another control of the system, in this window or another, has taken the focus. Whoever turns
    /// to another program, and back, is told neither. May be empty.
    std::function<void()> LostFocus{};
};

/// A window of the toolkit, hidden until shown. Peers must not outlive their window.
class IWindowPeer {
public:
    virtual ~IWindowPeer() = default;

    /// Puts a control in its place that shows just what its description says.
    virtual void AddFixture(const ControlDescription& control) = 0;
    [[nodiscard]] virtual std::unique_ptr<ITextPeer> AddText(const ControlDescription& control,
                                                             TextPeerEvents events) = 0;
    [[nodiscard]] virtual std::unique_ptr<IRangePeer> AddRange(
        const ControlDescription& control) = 0;
    [[nodiscard]] virtual std::unique_ptr<ILabelPeer> AddLabel(
        const ControlDescription& control) = 0;
    [[nodiscard]] virtual std::unique_ptr<IPicturePeer> AddPicture(
        const ControlDescription& control) = 0;
    [[nodiscard]] virtual std::unique_ptr<IButtonPeer> AddButton(const ControlDescription& control,
                                                                 ButtonPeerEvents events) = 0;
    /// Shows `items` in their order; none is selected at first.
    [[nodiscard]] virtual std::unique_ptr<IListPeer> AddList(const ControlDescription& control,
                                                             const std::vector<std::string>& items,
                                                             ListPeerEvents events) = 0;
    [[nodiscard]] virtual std::unique_ptr<ICheckBoxPeer> AddCheckBox(
        const ControlDescription& control, CheckBoxPeerEvents events) = 0;
    [[nodiscard]] virtual std::unique_ptr<IListViewPeer> AddListView(
        const ControlDescription& control, ListViewPeerEvents events) = 0;
    [[nodiscard]] virtual std::unique_ptr<ICalendarPeer> AddCalendar(
        const ControlDescription& control, const CalendarDescription& calendar,
        CalendarPeerEvents events) = 0;
    /// A place for a control that draws itself. It must not outlive the window.
    [[nodiscard]] virtual std::unique_ptr<IControlHost> AddControl(
        const ControlDescription& control) = 0;
    /// `Click` is called when a person chooses the entry; it may be empty.
    virtual void AddMenu(const MenuDescription& menu, std::function<void()> Click) = 0;

    /// Shows the window modeless; the control of tab index 0 has the focus the first time.
    virtual void Show() = 0;
    /// Shows the window and returns when it is hidden again. Messages run meanwhile, but a person
    /// reaches no other window of the system.
    virtual void ShowModal() = 0;
    virtual void Hide() = 0;
    /// May be called while the window is shown.
    virtual void SetBorderStyle(BorderStyle style) = 0;
    [[nodiscard]] virtual WindowSize Size() const = 0;

    /// Asks a person for a file to open, modal: messages run meanwhile. The full path that was
    /// chosen, and nothing if the person has cancelled. With a filter "*.exe" on, what can be
    /// started is named with ".exe" at its end, in the way in which ILanguageRuntime::Shell takes
    /// it.
    [[nodiscard]] virtual std::optional<std::string> AskForFile(
        const FileDialogRequest& request) = 0;

    /// Asks a person how to print, modal: messages run meanwhile. `flags` is a sum of
    /// PrintDialogFlags. Whether the person has confirmed; the printer that was chosen is then the
    /// one that IPrinter's next job goes to. No choice of what is printed has an effect.
    virtual bool AskForPrinter(std::int32_t flags) = 0;

    [[nodiscard]] virtual HWND hWnd() const = 0;
    /// The program's icon, which every window bears.
    [[nodiscard]] virtual HICON hIcon() const = 0;
};

struct WindowPeerEvents {
    std::function<void()> CloseRequested;  ///< a person closes the window by its frame
    /// The size has become another one while the window was shown.
    std::function<void(const WindowSize& size)> Resized{};
};

class IWindowToolkit {
public:
    virtual ~IWindowToolkit() = default;
    [[nodiscard]] virtual std::unique_ptr<IWindowPeer> CreateWindow(
        const WindowDescription& description, WindowPeerEvents events) = 0;
};

}  // namespace corvane
