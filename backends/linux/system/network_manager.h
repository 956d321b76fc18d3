// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QMap>
#include <QString>
#include <QVariantMap>
#include <optional>

namespace corvane::linux_desktop {

/// Settings of a connection: section, name, value.
using ConnectionSettings = QMap<QString, QVariantMap>;

/// What stands for the type of a Bluetooth connection to a telephone that serves as a modem.
inline const QString kBluetoothModem = QStringLiteral("dun");

/// Whether a connection of this type goes through a modem or PPP.
[[nodiscard]] bool IsModem(const QString& type);

/// The type of a connection. A telephone reached by Bluetooth may be a modem or a network, and
/// only its settings tell which.
[[nodiscard]] QString TypeOf(const ConnectionSettings& settings);

/// Asks NetworkManager and waits for the answer, two seconds at most. Where it does not run each
/// question goes unanswered at once.
class NetworkManager {
public:
    explicit NetworkManager(QDBusConnection bus);

    /// An answer's first value; nothing if it was refused or did not come.
    [[nodiscard]] std::optional<QVariant> Ask(const QString& path, const QString& interface,
                                              const QString& method,
                                              const QVariantList& arguments = {}) const;
    [[nodiscard]] QVariant Property(const QString& path, const QString& interface,
                                    const QString& name) const;
    /// As Property, for those who must not take silence for an answer. `silence` where no answer
    /// came in time; invalid only where there is no such thing, or nobody to ask.
    [[nodiscard]] QVariant PropertyUnlessSilent(const QString& path, const QString& interface,
                                                const QString& name, const QVariant& silence) const;
    [[nodiscard]] ConnectionSettings SettingsOf(const QString& connection) const;

    /// Asks for the settings of a connection; for those who do not wait for the answer.
    [[nodiscard]] static QDBusMessage SettingsQuestion(const QString& connection);

    static const QString kName;
    static const QString kPath;
    static const QString kActive;  ///< the interface of a connection in use

private:
    [[nodiscard]] std::optional<QVariant> Ask(const QDBusMessage& question) const;
    [[nodiscard]] QDBusMessage AnswerTo(QDBusMessage question) const;

    QDBusConnection bus_;
};

}  // namespace corvane::linux_desktop
