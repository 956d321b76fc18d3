// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/controls.h"
#include "runtime/message_loop.h"

namespace corvane::forms {

/// A window of the system. A class derived from it names its controls as public members.
class Form : public std::enable_shared_from_this<Form> {
public:
    virtual ~Form();

    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    std::function<void()> Load;  ///< raised by the first use of the window, before it can be seen
    std::function<void()>
        Unload;  ///< raised when the window is closed, by a person or by the system
    std::function<void()> Resize;  ///< raised by the first showing and by each change of size
    std::function<void()> Closed;  ///< behind Unload: whoever owns the window may let it go

    void Show();
    /// Returns when the window is hidden; messages run meanwhile.
    void ShowModal();
    void Hide();
    void SetBorderStyle(BorderStyle style);

    /// The client area, in twips. Its corner is always 0.
    [[nodiscard]] float ScaleLeft() const { return 0; }
    [[nodiscard]] float ScaleWidth() const { return static_cast<float>(size_.client_width); }
    /// The window with its frame, in twips.
    [[nodiscard]] float Width() const { return static_cast<float>(size_.outer_width); }
    [[nodiscard]] float Height() const { return static_cast<float>(size_.outer_height); }
    [[nodiscard]] HWND hWnd() const { return window_->hWnd(); }
    [[nodiscard]] HICON hIcon() const { return window_->hIcon(); }

    /// Unloads the window: raises Unload, puts it out of sight, and raises Closed.
    void Close();

    /// The row of that name in the window's layout.
    [[nodiscard]] const ControlDescription& Describe(std::string_view name) const;
    [[nodiscard]] IWindowPeer& window() { return *window_; }
    [[nodiscard]] MessageLoop& loop() { return loop_; }

    /// Runs what an event of the toolkit leads to, as a message of its own; the window stays alive
    /// until it has run.
    void Enter(const MessageLoop::Handler& handler);

protected:
    /// The tables in `description` must outlive the window.
    Form(IWindowToolkit& toolkit, MessageLoop& loop, const WindowDescription& description);

private:
    void PrepareToShow();
    void RaiseResize();

    WindowDescription description_;
    MessageLoop& loop_;
    WindowSize size_;
    bool shown_ = false;
    std::unique_ptr<IWindowPeer> window_;
};

/// A window that is created and loaded by its first use.
template <class Window>
class Lazy {
public:
    /// `create` makes the window and binds its handlers.
    explicit Lazy(std::function<std::shared_ptr<Window>()> create) : create_(std::move(create)) {}

    [[nodiscard]] Window* operator->() {
        if (!window_) {
            window_ = create_();
            if (const auto handler = window_->Load) handler();
        }
        return window_.get();
    }
    [[nodiscard]] bool Loaded() const { return window_ != nullptr; }
    /// The next use creates and loads another one. Whoever is inside the old one keeps it alive.
    void LetGo() { window_.reset(); }

private:
    std::function<std::shared_ptr<Window>()> create_;
    std::shared_ptr<Window> window_;
};

}  // namespace corvane::forms
