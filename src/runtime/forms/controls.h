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

private:
    bool visible_ = true;
    std::unique_ptr<IButtonPeer> peer_;
};

/// An entry of the menu bar.
class Menu {
public:
    Menu(Form& form, const MenuDescription& description);

    std::function<void()> Click;
};

}  // namespace corvane::forms
