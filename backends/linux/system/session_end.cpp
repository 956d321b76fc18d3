// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/session_end.h"

#include <QDBusMessage>
#include <QString>
#include <utility>

#include "platform/user32.h"

namespace corvane::linux_desktop {
namespace {

constexpr int kPatience = 5000;  // milliseconds

// That programs are not to be waited for is all that these say, and logind waits for none.
constexpr std::uint32_t kForce = 4;
constexpr std::uint32_t kForceIfHung = 16;

QString MethodOf(std::uint32_t flags) {
    switch (flags & ~(kForce | kForceIfHung)) {
        case EWX_REBOOT:
        case EWX_REBOOT | EWX_SHUTDOWN:
            return QStringLiteral("Reboot");
        case EWX_SHUTDOWN:
        case EWX_POWEROFF:
        case EWX_SHUTDOWN | EWX_POWEROFF:
            return QStringLiteral("PowerOff");
        default:
            return {};
    }
}

}  // namespace

SessionEnd::SessionEnd(QDBusConnection bus, const ProcessTokens& tokens)
    : bus_(std::move(bus)), tokens_(tokens) {}

bool SessionEnd::ExitWindowsEx(std::uint32_t flags) {
    const QString method = MethodOf(flags);
    if (method.isEmpty() || !tokens_.MayShutDown() || !bus_.isConnected()) return false;
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), method);
    constexpr bool kInteractive = false;
    request << kInteractive;
    request.setAutoStartService(false);
    return bus_.call(request, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace corvane::linux_desktop
