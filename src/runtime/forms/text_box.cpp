// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/text_box.h"

#include <algorithm>
#include <utility>

#include "runtime/forms/form.h"
#include "runtime/text.h"

namespace corvane::forms {

TextBox::TextBox(Form& form, std::string_view name)
    : text_(form.Describe(name).text), hide_selection_(form.Describe(name).hide_selection) {
    TextPeerEvents events;
    events.Edited = [this, &form](const std::string& text, std::int32_t start,
                                  std::int32_t length) {
        form.Enter([&] { TakeEdit(text, start, length); });
    };
    events.GotFocus = [this, &form] {
        form.Enter([this] {
            if (const auto handler = GotFocus) handler();
        });
    };
    events.LostFocus = [this, &form] {
        form.Enter([this] {
            if (const auto handler = LostFocus) handler();
        });
    };
    peer_ = form.window().AddText(form.Describe(name), std::move(events));
}

void TextBox::SetText(std::string text) {
    const bool changed = text != text_;
    text_ = std::move(text);
    sel_start_ = 0;
    sel_length_ = 0;
    peer_->SetText(text_);
    if (changed) RaiseChange();
}

void TextBox::SetFocus() {
    peer_->SetFocus();
}

void TextBox::SetSelStart(Long start) {
    if (start < 0) throw RuntimeError(kInvalidPropertyValue, "Invalid property value");
    sel_start_ = std::min(start, Len(text_));
    sel_length_ = 0;
    peer_->SetSelection(sel_start_.rep(), 0);
}

void TextBox::SetSelLength(Long length) {
    if (length < 0) throw RuntimeError(kInvalidPropertyValue, "Invalid property value");
    sel_length_ = std::min(length, Len(text_) - sel_start_);
    peer_->SetSelection(sel_start_.rep(), sel_length_.rep());
}

void TextBox::SetSelText(const std::string& text) {
    const std::string before =
        std::exchange(text_, Left(text_, sel_start_) + text +
                                 Mid(text_, sel_start_ + sel_length_ + 1, Len(text_)));
    sel_start_ += Len(text);
    sel_length_ = 0;
    peer_->ReplaceSelection(text);
    if (text_ != before) RaiseChange();
}

void TextBox::TakeEdit(const std::string& text, Long start, Long length) {
    const bool changed = text != text_;
    text_ = text;
    sel_start_ = start;
    sel_length_ = length;
    if (changed) RaiseChange();
}

void TextBox::RaiseChange() {
    if (const auto handler = Change) handler();
}

}  // namespace corvane::forms
