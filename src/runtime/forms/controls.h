// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "runtime/numbers.h"

/// The controls that are neither texts nor timers. Each is made from its row in the form's layout.
namespace corvane::forms {

class Form;

/// A control that stands in its place and shows what its row says.
class Fixture {
public:
    Fixture(Form& form, std::string_view name);
};

class Label {
public:
    Label(Form& form, std::string_view name);

    [[nodiscard]] const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption);

private:
    std::string caption_;
    std::unique_ptr<ILabelPeer> peer_;
};

class ProgressBar {
public:
    ProgressBar(Form& form, std::string_view name);

    [[nodiscard]] Long Value() const { return value_; }
    /// 0 to 100; any other value raises kInvalidPropertyValue and changes nothing.
    void SetValue(Long value);

private:
    Long value_;
    std::unique_ptr<IRangePeer> peer_;
};

/// Pictures for other controls, by their names.
class ImageList {
public:
    ImageList(Form& form, std::string_view name);

    /// Counts from 1; out of range raises kSubscriptOutOfRange.
    [[nodiscard]] const std::string& Picture(Long index) const;

private:
    std::vector<std::string> names_;
};

class PictureBox {
public:
    PictureBox(Form& form, std::string_view name);

    [[nodiscard]] const std::string& Picture() const { return picture_; }
    void SetPicture(const std::string& picture);

private:
    std::string picture_;
    std::unique_ptr<IPicturePeer> peer_;
};

class CommandButton {
public:
    CommandButton(Form& form, std::string_view name);

    std::function<void()> Click;
    /// A key goes down on the button: its code, and 1, 2, 4 for Shift, Ctrl, Alt.
    std::function<void(Integer KeyCode, Integer Shift)> KeyDown;

    [[nodiscard]] bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    [[nodiscard]] bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    /// Whether Enter presses this button while the focus is elsewhere in the window.
    [[nodiscard]] bool Default() const { return default_; }
    void SetDefault(bool is_default);
    /// True while a click of this button is carried out.
    [[nodiscard]] bool Value() const { return value_; }

private:
    void TakeClick();

    bool visible_ = true;
    bool enabled_;
    bool default_ = false;
    bool value_ = false;
    std::unique_ptr<IButtonPeer> peer_;
};

class CheckBox {
public:
    CheckBox(Form& form, std::string_view name);

    /// Raised behind each change of Value.
    std::function<void()> Click;

    /// 1 when it is checked, else 0.
    [[nodiscard]] Integer Value() const { return checked_ ? 1 : 0; }
    /// Any value but 0 and 1 raises kInvalidPropertyValue.
    void SetValue(Integer value);

private:
    void RaiseClick();

    bool checked_;
    std::unique_ptr<ICheckBoxPeer> peer_;
};

/// The question for a file, or how to print. Its properties are kept from one showing to the next.
class CommonDialog {
public:
    CommonDialog(Form& form, std::string_view name);

    std::string FileName;
    std::string DialogTitle;
    std::string Filter;
    Long FilterIndex = 1;
    Long Flags;

    /// Asks; when the person cancels, FileName stays as it is.
    void ShowOpen();

    /// Asks how to print, as Flags say; what the person answers is not kept.
    void ShowPrinter();

private:
    Form& form_;
};

/// An entry of the menu bar.
class Menu {
public:
    Menu(Form& form, const MenuDescription& description);

    std::function<void()> Click;
};

}  // namespace corvane::forms
