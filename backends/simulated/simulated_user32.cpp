// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_user32.h"

#include <algorithm>

namespace corvane::simulated {
namespace {

/// Arguments of a call as its line in the record has them.
template <class... Numbers>
std::string Words(Numbers... numbers) {
    std::string words;
    ((words += (words.empty() ? "" : " ") + std::to_string(numbers)), ...);
    return words;
}

}  // namespace

SimulatedUser32::SimulatedUser32(CallRecord& record, VirtualQueue& queue, Screen& screen,
                                 const SimulatedTokens& tokens, const CellWindows& windows,
                                 SimulatedPrinter& printer)
    : record_(record),
      queue_(queue),
      screen_(screen),
      tokens_(tokens),
      windows_(windows),
      printer_(printer) {}

bool SimulatedUser32::ReleaseCapture() {
    record_.Call("ReleaseCapture");
    return true;
}

std::int32_t SimulatedUser32::SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                           std::int32_t lParam) {
    record_.Call("SendMessageA", Words(hWnd, msg, wParam, lParam));
    return 0;
}

std::int32_t SimulatedUser32::SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                           const FORMATRANGE* range) {
    const ShownText* text = windows_.FindText(hWnd);
    if (msg != EM_FORMATRANGE || text == nullptr) return 0;
    if (range != nullptr) return printer_.FormatRange(hWnd, text->text, wParam != 0, *range);
    record_.Call("FreeLayout");
    printer_.FreeLayout(hWnd);
    return 0;
}

HWND SimulatedUser32::GetForegroundWindow() {
    record_.Call("GetForegroundWindow");
    return screen_.Foreground();
}

std::int32_t SimulatedUser32::GetWindowTextLengthA(HWND hWnd) {
    record_.Call("GetWindowTextLengthA", Words(hWnd));
    const auto window = screen_.Find(hWnd);
    return window ? static_cast<std::int32_t>(window->caption.size()) : 0;
}

std::int32_t SimulatedUser32::GetWindowTextA(HWND hWnd, char* buffer, std::int32_t count) {
    record_.Call("GetWindowTextA", Words(hWnd, count));
    const auto window = screen_.Find(hWnd);
    if (!window || count <= 0) return 0;
    const auto length = std::min(window->caption.size(), static_cast<std::size_t>(count) - 1);
    std::copy_n(window->caption.begin(), length, buffer);
    buffer[length] = '\0';
    return static_cast<std::int32_t>(length);
}

bool SimulatedUser32::PostMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                                   std::int32_t lParam) {
    record_.Call("PostMessageA", Words(hWnd, msg, wParam, lParam));
    if (!screen_.Find(hWnd)) return false;
    queue_.Post([this, hWnd, msg] {
        const auto window = screen_.Find(hWnd);
        if (window && msg == WM_CLOSE) window->OnClose();
    });
    return true;
}

std::uint32_t SimulatedUser32::GetWindowThreadProcessId(HWND hWnd, std::uint32_t* processId) {
    record_.Call("GetWindowThreadProcessId", Words(hWnd));
    const auto window = screen_.Find(hWnd);
    if (!window) return 0;
    // Every program here has one thread.
    if (processId != nullptr) *processId = window->thread * 10;
    return window->thread;
}

bool SimulatedUser32::AttachThreadInput(std::uint32_t idAttach, std::uint32_t idAttachTo,
                                        std::int32_t fAttach) {
    record_.Call("AttachThreadInput", Words(idAttach, idAttachTo, fAttach));
    const std::pair threads = std::minmax(idAttach, idAttachTo);
    if (fAttach == 0) return joined_.erase(threads) == 1;
    if (idAttach == idAttachTo || !screen_.HasThread(idAttach) || !screen_.HasThread(idAttachTo))
        return false;
    joined_.insert(threads);
    return true;
}

bool SimulatedUser32::SetForegroundWindow(HWND hWnd) {
    record_.Call("SetForegroundWindow", Words(hWnd));
    if (!screen_.Find(hWnd) || !MayTakeFront()) return false;
    screen_.BringToFront(hWnd);
    return true;
}

bool SimulatedUser32::IsIconic(HWND hWnd) {
    record_.Call("IsIconic", Words(hWnd));
    const auto window = screen_.Find(hWnd);
    return window && window->state == ShowState::Minimised;
}

bool SimulatedUser32::ShowWindow(HWND hWnd, std::int32_t nCmdShow) {
    record_.Call("ShowWindow", Words(hWnd, nCmdShow));
    const auto window = screen_.Find(hWnd);
    if (!window) return false;
    const bool was_visible = std::exchange(window->visible, true);
    const bool was_minimised = window->state == ShowState::Minimised;
    const bool was_in_front = screen_.Foreground() == hWnd;
    switch (nCmdShow) {
        case SW_SHOWNORMAL:
            window->state = ShowState::Normal;
            break;
        case SW_RESTORE:
            window->state = was_minimised && window->restores_to_maximised ? ShowState::Maximised
                                                                           : ShowState::Normal;
            break;
        case SW_SHOWMAXIMIZED:
            window->state = ShowState::Maximised;
            break;
        case SW_MINIMIZE:
        case SW_SHOWMINIMIZED:
            screen_.Minimise(hWnd);
            if (nCmdShow == SW_SHOWMINIMIZED && was_in_front) screen_.BringToFront(hWnd);
            return was_visible;
        default:
            break;
    }
    if (MayTakeFront()) screen_.BringToFront(hWnd);
    return was_visible;
}

bool SimulatedUser32::ExitWindowsEx(std::uint32_t flags, std::uint32_t reserved) {
    record_.Call("ExitWindowsEx", Words(flags, reserved));
    if (!tokens_.ShutdownSwitchedOn()) return false;
    session_end_ = flags;
    return true;
}

std::int32_t SimulatedUser32::GetSysColor(std::int32_t index) {
    const auto set = colours_.find(index);
    if (set != colours_.end()) return set->second;
    // A grey of its own for each part.
    constexpr std::int32_t kParts = 25;
    return index >= 0 && index < kParts ? index * 0x010101 : 0;
}

bool SimulatedUser32::MayTakeFront() const {
    const auto foreground = screen_.Find(screen_.Foreground());
    return !foreground || foreground->thread == Screen::kOwnThread ||
           joined_.contains(std::minmax(foreground->thread, Screen::kOwnThread));
}

}  // namespace corvane::simulated
