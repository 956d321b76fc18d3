// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/form.h"

#include <algorithm>

#include "platform/error.h"

namespace corvane::forms {

Form::Form(IWindowToolkit& toolkit, MessageLoop& loop, const WindowDescription& description)
    : description_(description), loop_(loop) {
    WindowPeerEvents events;
    events.CloseRequested = [this] { Enter([this] { Close(); }); };
    window_ = toolkit.CreateWindow(description_, std::move(events));
}

Form::~Form() = default;

void Form::Show() {
    window_->Show();
}

void Form::ShowModal() {
    window_->ShowModal();
}

void Form::Hide() {
    window_->Hide();
}

void Form::SetBorderStyle(BorderStyle style) {
    window_->SetBorderStyle(style);
}

void Form::Close() {
    if (const auto handler = Unload) handler();
    window_->Hide();
}

const ControlDescription& Form::Describe(std::string_view name) const {
    const auto row = std::ranges::find(description_.controls, name, &ControlDescription::name);
    if (row == description_.controls.end())
        throw RuntimeError(kSubscriptOutOfRange, "No such control: " + std::string(name));
    return *row;
}

void Form::Enter(const MessageLoop::Handler& handler) {
    const auto alive = shared_from_this();
    loop_.Enter(handler);
}

}  // namespace corvane::forms
