// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/user32.h"

namespace corvane::simulated {

enum class ShowState { Normal, Minimised, Maximised };

/// A top-level window of any program.
struct TopWindow {
    HWND handle = 0;
    std::uint32_t thread = 0;  ///< the one that owns it
    std::string caption;
    bool visible = false;
    ShowState state = ShowState::Normal;
    bool restores_to_maximised = false;  ///< what a minimised one was before
    /// What its program does when the window is asked to close.
    std::function<void()> OnClose = [] {};
    /// What its program does with keys that a person or another program strikes.
    std::function<void(const std::string& keys)> OnKeys = [](const std::string&) {};
};

/// The screen that the windows of all programs share: which of them is in front, and which comes
/// next.
class Screen {
public:
    /// The thread of the system itself.
    static constexpr std::uint32_t kOwnThread = 100;

    /// Takes a window of the system onto the screen, hidden; gives it its handle and thread.
    void TakeOwn(const std::shared_ptr<TopWindow>& window);
    /// Another program, with a thread of its own, opens a window in front of all. It closes when
    /// it is asked to.
    HWND Open(const std::string& caption);
    /// The program of that window opens a further one in front.
    HWND OpenBeside(HWND window, const std::string& caption);
    /// A window is gone for good; the next one takes the front.
    void Remove(HWND handle);
    /// A person clicks on a window.
    void BringToFront(HWND handle);
    /// A person minimises a window by its frame.
    void Minimise(HWND handle);
    /// A window has been hidden or minimised, so that the next one takes the front if it was there.
    void LeaveFront(HWND handle);

    /// The window in front; 0 when there is none.
    [[nodiscard]] HWND Foreground() const { return foreground_; }
    /// Null when there is no such window, or no longer.
    [[nodiscard]] std::shared_ptr<TopWindow> Find(HWND handle) const;
    /// A window that is there.
    [[nodiscard]] TopWindow& At(HWND handle) const;
    /// Whether any window belongs to that thread.
    [[nodiscard]] bool HasThread(std::uint32_t thread) const;
    /// Keys are struck; the program of the window in front takes them.
    void Strike(const std::string& keys) const;

private:
    HWND Place(std::uint32_t thread, const std::string& caption);

    std::vector<std::shared_ptr<TopWindow>> windows_;  // the foremost last
    HWND foreground_ = 0;
    HWND next_own_ = 4001;
    HWND next_foreign_ = 5001;
    std::uint32_t next_thread_ = 201;
};

}  // namespace corvane::simulated
