// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/network_manager.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <utility>

namespace corvane::linux_desktop {

const QString NetworkManager::kName = QStringLiteral("org.freedesktop.NetworkManager");
const QString NetworkManager::kPath = QStringLiteral("/org/freedesktop/NetworkManager");
const QString NetworkManager::kActive =
    QStringLiteral("org.freedesktop.NetworkManager.Connection.Active");

bool IsModem(const QString& type) {
    return type == u"gsm" || type == u"cdma" || type == u"pppoe" || type == u"adsl" ||
           type == kBluetoothModem;
}

QString TypeOf(const ConnectionSettings& settings) {
    const QString type = settings[QStringLiteral("connection")][QStringLiteral("type")].toString();
    const QVariant profile = settings[QStringLiteral("bluetooth")][QStringLiteral("type")];
    return type == u"bluetooth" && profile == kBluetoothModem ? kBluetoothModem : type;
}

NetworkManager::NetworkManager(QDBusConnection bus) : bus_(std::move(bus)) {
    qDBusRegisterMetaType<ConnectionSettings>();
}

std::optional<QVariant> NetworkManager::Ask(const QString& path, const QString& interface,
                                            const QString& method,
                                            const QVariantList& arguments) const {
    QDBusMessage question = QDBusMessage::createMethodCall(kName, path, interface, method);
    question.setArguments(arguments);
    return Ask(question);
}

std::optional<QVariant> NetworkManager::Ask(QDBusMessage question) const {
    constexpr int kPatience = 2000;  // milliseconds
    if (!bus_.isConnected()) return std::nullopt;
    question.setAutoStartService(false);
    const QDBusMessage answer = bus_.call(question, QDBus::Block, kPatience);
    if (answer.type() != QDBusMessage::ReplyMessage) return std::nullopt;
    return answer.arguments().value(0);
}

QVariant NetworkManager::Property(const QString& path, const QString& interface,
                                  const QString& name) const {
    const auto answer = Ask(path, QStringLiteral("org.freedesktop.DBus.Properties"),
                            QStringLiteral("Get"), {interface, name});
    return answer ? answer->value<QDBusVariant>().variant() : QVariant();
}

ConnectionSettings NetworkManager::SettingsOf(const QString& connection) const {
    const auto answer = Ask(SettingsQuestion(connection));
    return answer ? qdbus_cast<ConnectionSettings>(*answer) : ConnectionSettings();
}

QDBusMessage NetworkManager::SettingsQuestion(const QString& connection) {
    return QDBusMessage::createMethodCall(
        kName, connection, QStringLiteral("org.freedesktop.NetworkManager.Settings.Connection"),
        QStringLiteral("GetSettings"));
}

}  // namespace corvane::linux_desktop
