// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/screen.h"

#include <algorithm>
#include <stdexcept>

namespace corvane::simulated {

void Screen::TakeOwn(const std::shared_ptr<TopWindow>& window) {
    window->handle = next_own_++;
    window->thread = kOwnThread;
    windows_.push_back(window);
}

HWND Screen::Open(const std::string& caption) {
    return Place(next_thread_++, caption);
}

HWND Screen::OpenBeside(HWND window, const std::string& caption) {
    return Place(At(window).thread, caption);
}

HWND Screen::Place(std::uint32_t thread, const std::string& caption) {
    auto window = std::make_shared<TopWindow>();
    const HWND handle = next_foreign_++;
    window->handle = handle;
    window->thread = thread;
    window->caption = caption;
    window->visible = true;
    window->OnClose = [this, handle] { Remove(handle); };
    windows_.push_back(std::move(window));
    BringToFront(handle);
    return handle;
}

void Screen::Remove(HWND handle) {
    std::erase_if(windows_, [&](const auto& window) { return window->handle == handle; });
    LeaveFront(handle);
}

void Screen::BringToFront(HWND handle) {
    const auto window = std::ranges::find(windows_, handle, &TopWindow::handle);
    if (window == windows_.end()) return;
    std::rotate(window, window + 1, windows_.end());
    foreground_ = handle;
}

void Screen::Minimise(HWND handle) {
    TopWindow& window = At(handle);
    if (window.state != ShowState::Minimised)
        window.restores_to_maximised = window.state == ShowState::Maximised;
    window.state = ShowState::Minimised;
    LeaveFront(handle);
}

void Screen::LeaveFront(HWND handle) {
    if (foreground_ != handle) return;
    foreground_ = 0;
    const auto next = std::find_if(windows_.rbegin(), windows_.rend(), [](const auto& window) {
        return window->visible && window->state != ShowState::Minimised;
    });
    if (next != windows_.rend()) foreground_ = (*next)->handle;
}

std::shared_ptr<TopWindow> Screen::Find(HWND handle) const {
    const auto window = std::ranges::find(windows_, handle, &TopWindow::handle);
    return window == windows_.end() ? nullptr : *window;
}

TopWindow& Screen::At(HWND handle) const {
    const auto window = Find(handle);
    if (!window) throw std::logic_error("no window " + std::to_string(handle));
    return *window;
}

bool Screen::HasThread(std::uint32_t thread) const {
    return std::ranges::find(windows_, thread, &TopWindow::thread) != windows_.end();
}

void Screen::Strike(const std::string& keys) const {
    if (const auto window = Find(foreground_)) window->OnKeys(keys);
}

}  // namespace corvane::simulated
