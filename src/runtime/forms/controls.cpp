// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/controls.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/error.h"
#include "runtime/forms/form.h"

namespace corvane::forms {

Fixture::Fixture(Form& form, std::string_view name) {
    form.window().AddFixture(form.Describe(name));
}

Label::Label(Form& form, std::string_view name)
    : caption_(form.Describe(name).text), peer_(form.window().AddLabel(form.Describe(name))) {}

void Label::SetCaption(const std::string& caption) {
    caption_ = caption;
    peer_->SetCaption(caption_);
}

ProgressBar::ProgressBar(Form& form, std::string_view name)
    : peer_(form.window().AddRange(form.Describe(name))) {}

void ProgressBar::SetValue(Long value) {
    if (value < 0 || value > 100)
        throw RuntimeError(kInvalidPropertyValue, "Invalid property value");
    value_ = value;
    peer_->SetValue(value_.rep());
}

ImageList::ImageList(Form& form, std::string_view name) {
    std::string_view rest = form.Describe(name).text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        names_.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

const std::string& ImageList::Picture(Long index) const {
    if (index < 1 || index > static_cast<std::int64_t>(names_.size()))
        throw RuntimeError(kSubscriptOutOfRange, "Subscript out of range");
    return names_[static_cast<std::size_t>(index.rep()) - 1];
}

PictureBox::PictureBox(Form& form, std::string_view name)
    : picture_(form.Describe(name).text), peer_(form.window().AddPicture(form.Describe(name))) {}

void PictureBox::SetPicture(const std::string& picture) {
    picture_ = picture;
    peer_->SetPicture(picture_);
}

CommandButton::CommandButton(Form& form, std::string_view name)
    : enabled_(form.Describe(name).enabled) {
    ButtonPeerEvents events;
    events.Click = [this, &form] { form.Enter([this] { TakeClick(); }); };
    events.KeyDown = [this, &form](std::int16_t code, std::int16_t shift) {
        form.Enter([this, code, shift] {
            if (const auto handler = KeyDown) handler(code, shift);
        });
    };
    peer_ = form.window().AddButton(form.Describe(name), std::move(events));
}

void CommandButton::SetVisible(bool visible) {
    visible_ = visible;
    peer_->SetVisible(visible_);
}

void CommandButton::SetEnabled(bool enabled) {
    enabled_ = enabled;
    peer_->SetEnabled(enabled_);
}

void CommandButton::SetDefault(bool is_default) {
    default_ = is_default;
    peer_->SetDefault(default_);
}

void CommandButton::TakeClick() {
    if (!enabled_) return;
    value_ = true;
    // An error in the handler ends the process, so nothing has to be put back behind one.
    if (const auto handler = Click) handler();
    value_ = false;
}

CheckBox::CheckBox(Form& form, std::string_view name) : checked_(form.Describe(name).checked) {
    CheckBoxPeerEvents events;
    events.Click = [this, &form](bool checked) {
        form.Enter([this, checked] {
            checked_ = checked;
            RaiseClick();
        });
    };
    peer_ = form.window().AddCheckBox(form.Describe(name), std::move(events));
}

void CheckBox::SetValue(Integer value) {
    if (value != 0 && value != 1)
        throw RuntimeError(kInvalidPropertyValue, "Invalid property value");
    if (value == Value()) return;
    checked_ = value == 1;
    peer_->SetChecked(checked_);
    RaiseClick();
}

void CheckBox::RaiseClick() {
    if (const auto handler = Click) handler();
}

CommonDialog::CommonDialog(Form& form, std::string_view name) : form_(form) {
    form.window().AddFixture(form.Describe(name));
}

void CommonDialog::ShowOpen() {
    const auto chosen = form_.window().AskForFile({.title = DialogTitle,
                                                   .filter = Filter,
                                                   .filter_index = FilterIndex.rep(),
                                                   .flags = Flags.rep()});
    if (chosen) FileName = *chosen;
}

void CommonDialog::ShowPrinter() {
    form_.window().AskForPrinter(Flags.rep());
}

Menu::Menu(Form& form, const MenuDescription& description) {
    form.window().AddMenu(description, [this, &form] {
        form.Enter([this] {
            if (const auto handler = Click) handler();
        });
    });
}

}  // namespace corvane::forms
