// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/accessibility_registry.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>

namespace corvane::linux_desktop {
namespace {

constexpr int kPatience = 250;  // milliseconds

const QString kConnection = QStringLiteral("corvane-accessibility");

/// Asks a service that runs; none is started for it.
QDBusMessage Ask(const QDBusConnection& bus, const char* service, const char* path,
                 const char* interface, const char* method) {
    auto question = QDBusMessage::createMethodCall(service, path, interface, method);
    question.setAutoStartService(false);
    return bus.call(question, QDBus::Block, kPatience);
}

}  // namespace

AccessibilityRegistry::~AccessibilityRegistry() {
    if (!bus_.isEmpty()) QDBusConnection::disconnectFromBus(kConnection);
}

QString AccessibilityRegistry::FindBus() {
    const QDBusReply<QString> address = Ask(QDBusConnection::sessionBus(), "org.a11y.Bus",
                                            "/org/a11y/bus", "org.a11y.Bus", "GetAddress");
    return address.isValid() ? address.value() : QString();
}

bool AccessibilityRegistry::WaitUntilAllAnswered() {
    if (bus_.isEmpty() || !QDBusConnection(kConnection).isConnected()) {
        if (!bus_.isEmpty()) QDBusConnection::disconnectFromBus(kConnection);
        bus_ = FindBus();
        if (bus_.isEmpty()) return false;
        QDBusConnection::connectToBus(bus_, kConnection);
    }
    // It answers in the order in which it was asked.
    const QDBusMessage answer =
        Ask(QDBusConnection(kConnection), "org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
            "org.freedesktop.DBus.Peer", "Ping");
    return answer.type() == QDBusMessage::ReplyMessage;
}

}  // namespace corvane::linux_desktop
