// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/form.h"

#include <algorithm>
#include <utility>

#include "platform/error.h"

namespace corvane::forms {

Form::Form(IWindowToolkit& toolkit, MessageLoop& loop, const WindowDescription& description)
    : description_(description), loop_(loop) {
    WindowPeerEvents events;
    events.CloseRequested = [this] { Enter([this] { Close(); }); };
    events.Resized = [this](const WindowSize& size) {
        Enter([this, &size] {
            size_ = size;
            RaiseResize();
        });
    };
    window_ = toolkit.CreateWindow(description_, std::move(events));
    size_ = window_->Size();
}

Form::~Form() = default;

void Form::Show() {
    PrepareToShow();
    window_->Show();
}

void Form::ShowModal() {
    // It may be closed and let go while it stands.
    const auto alive = shared_from_this();
    PrepareToShow();
    window_->ShowModal();
}

void Form::Hide() {
    window_->Hide();
}

void Form::SetBorderStyle(BorderStyle style) {
    window_->SetBorderStyle(style);
}

void Form::Close() {
    const auto alive = shared_from_this();
    if (const auto handler = Unload) handler();
    window_->Hide();
    if (const auto handler = Closed) handler();
}

const ControlDescription& Form::Describe(std::string_view name) const {
    const auto row = std::ranges::find(description_.controls, name, &ControlDescription::name);
    if (row == description_.controls.end())
        throw RuntimeError(kSubscriptOutOfRange, "No such control: " + std::string(name));
    return *row;
}

void Form::PrepareToShow() {
    if (std::exchange(shown_, true)) return;
    size_ = window_->Size();
    RaiseResize();
}

void Form::RaiseResize() {
    if (const auto handler = Resize) handler();
}

void Form::Enter(const MessageLoop::Handler& handler) {
    const auto alive = shared_from_this();
    loop_.Enter(handler);
}

}  // namespace corvane::forms
