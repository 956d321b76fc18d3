// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

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
    Line,           ///< from left, top to left + width, top + height
};

enum class ControlColours {
    System,
    WhiteOnBlack,
    MenuBackground,  ///< the system's menu colour behind the text
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
};

struct MenuDescription {
    std::string_view name;
    std::string_view caption;    ///< "&" in front of the access key; "-" alone is a separator
    std::string_view menu = {};  ///< name of the menu that holds it; empty: it is a menu of the bar
};

enum class BorderStyle { None = 0, FixedSingle = 1 };

enum class StartPosition { SystemDefault, CentreOfScreen };

struct WindowDescription {
    std::string_view name;
    std::string_view caption;
    int client_width = 0;   ///< twips, below the menu bar
    int client_height = 0;  ///< twips
    std::span<const ControlDescription> controls;
    StartPosition position = StartPosition::SystemDefault;
    bool white_background = false;  ///< otherwise the system's colour of windows
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

class IButtonPeer : public IControlPeer {
public:
    virtual void SetVisible(bool visible) = 0;
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

    [[nodiscard]] virtual HWND hWnd() const = 0;
    /// The program's icon, which every window bears.
    [[nodiscard]] virtual HICON hIcon() const = 0;
};

struct WindowPeerEvents {
    std::function<void()> CloseRequested;  ///< a person closes the window by its frame
};

class IWindowToolkit {
public:
    virtual ~IWindowToolkit() = default;
    [[nodiscard]] virtual std::unique_ptr<IWindowPeer> CreateWindow(
        const WindowDescription& description, WindowPeerEvents events) = 0;
};

}  // namespace corvane
