// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/tray_icon.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "runtime/failure.h"

namespace corvane {
namespace {

/// Not the window's caption: the two differ on purpose.
constexpr std::string_view kTip = "KT Corvane 2001";

/// A text of fixed length: the tip, one NUL, blanks to the end.
constexpr std::array<char, 64> FixedTip() {
    std::array<char, 64> tip{};
    tip.fill(' ');
    std::ranges::copy(kTip, tip.begin());
    tip[kTip.size()] = '\0';
    return tip;
}

}  // namespace

TrayIcon::TrayIcon(IShell32& shell32, forms::Lazy<Form2>& main_window)
    : shell32_(shell32), main_window_(main_window) {}

void TrayIcon::HideToTray() {
    main_window_->Hide();
    TrayIconData.cbSize = sizeof TrayIconData;
    TrayIconData.hWnd = main_window_->hWnd();
    TrayIconData.uID = 1;
    TrayIconData.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    TrayIconData.uCallbackMessage = WM_MOUSEMOVE;
    TrayIconData.hIcon = main_window_->hIcon();
    TrayIconData.szTip = FixedTip();
    shell32_.Shell_NotifyIconA(NIM_ADD, TrayIconData);
}

void TrayIcon::ShowFromTray() {
    ResumeNext step;
    step([&] { shell32_.Shell_NotifyIconA(NIM_DELETE, TrayIconData); });
    step([&] { main_window_->Show(); });
}

}  // namespace corvane
