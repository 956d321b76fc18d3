// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/network_manager.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <utility>

namespace corvane::linux_desktop {

const QString NetworkManager::kName = QStringLiteral("org.freedesktop.NetworkManager");
const QString NetworkManager::kPath = QStringLiteral("/org/freedesktop/NetworkManager");
const QString NetworkManager::kActive =
    QStringLiteral("org.freedesktop.NetworkManager.Connection.Active");

namespace {

bool IsSilence(const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ErrorMessage) return false;
    const QDBusError::ErrorType error = QDBusError(answer).type();
    return error == QDBusError::NoReply || error == QDBusError::Timeout ||
           error == QDBusError::TimedOut;
}

}  // namespace

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

std::optional<QVariant> NetworkManager::Ask(const QDBusMessage& question) const {
    const QDBusMessage answer = AnswerTo(question);
    if (answer.type() != QDBusMessage::ReplyMessage) return std::nullopt;
    return answer.arguments().value(0);
}

QDBusMessage NetworkManager::AnswerTo(QDBusMessage question) const {
    constexpr int kPatience = 2000;  // milliseconds
    if (!bus_.isConnected()) return {};
    question.setAutoStartService(false);
    return bus_.call(question, QDBus::Block, kPatience);
}

QVariant NetworkManager::Property(const QString& path, const QString& interface,
                                  const QString& name) const {
    return PropertyUnlessSilent(path, interface, name, {});
}

QVariant NetworkManager::PropertyUnlessSilent(const QString& path, const QString& interface,
                                              const QString& name, const QVariant& silence) const {
    QDBusMessage question = QDBusMessage::createMethodCall(
        kName, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setArguments({interface, name});
    const QDBusMessage answer = AnswerTo(question);
    if (IsSilence(answer)) return silence;
    if (answer.type() != QDBusMessage::ReplyMessage) return {};
    return answer.arguments().value(0).value<QDBusVariant>().variant();
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
