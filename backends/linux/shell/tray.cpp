// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/shell/tray.h"

#include <QApplication>
#include <algorithm>

namespace corvane::linux_desktop {
namespace {

QString Tip(const NOTIFYICONDATA& data) {
    const auto end = std::ranges::find(data.szTip, '\0');
    return QString::fromLatin1(data.szTip.data(), end - data.szTip.begin());
}

}  // namespace

bool Tray::Shell_NotifyIconA(std::uint32_t dwMessage, const NOTIFYICONDATA& data) {
    const IconKey key(data.hWnd, data.uID);
    if (dwMessage == NIM_DELETE) return icons_.erase(key) == 1;
    // An icon counts as visible even where there is no tray to show it.
    if (dwMessage != NIM_ADD || icons_.contains(key) || !QSystemTrayIcon::isSystemTrayAvailable())
        return false;
    auto icon = std::make_unique<QSystemTrayIcon>(QApplication::windowIcon());
    if ((data.uFlags & NIF_TIP) != 0) icon->setToolTip(Tip(data));
    icon->show();
    icons_[key] = std::move(icon);
    return true;
}

}  // namespace corvane::linux_desktop
