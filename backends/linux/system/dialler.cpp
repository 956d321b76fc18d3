// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/dialler.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDeadlineTimer>
#include <QThread>
#include <algorithm>
#include <tuple>
#include <utility>

namespace corvane::linux_desktop {
namespace {

// What becomes of a connection, in this order. One that is no longer known is down, which can't be
// said of one about which nobody answers.
constexpr unsigned kUnknown = 0;
constexpr unsigned kActivating = 1;
constexpr unsigned kActivated = 2;
constexpr unsigned kDeactivating = 3;
constexpr unsigned kDeactivated = 4;

QStringList Paths(const QVariant& list) {
    QStringList paths;
    for (const QDBusObjectPath& path : qdbus_cast<QList<QDBusObjectPath>>(list))
        paths.push_back(path.path());
    return paths;
}

/// Which of two profiles is rather the default: the greater.
auto Preference(const ConnectionSettings& settings) {
    const QVariantMap connection = settings[QStringLiteral("connection")];
    return std::tuple(connection.value(QStringLiteral("autoconnect"), true).toBool(),
                      connection.value(QStringLiteral("timestamp")).toULongLong());
}

}  // namespace

Dialler::Dialler(QDBusConnection bus) : network_(std::move(bus)) {}

bool Dialler::Dial() const {
    constexpr int kPatience = 60'000;  // milliseconds
    QString dialled;
    for (const QString& active : ActiveModems()) {
        const unsigned state = StateOf(active);
        if (state == kActivated) return true;
        if (state == kActivating || state == kUnknown) dialled = active;
    }
    if (dialled.isEmpty()) {
        const QString profile = DefaultProfile();
        if (profile.isEmpty()) return false;
        const QDBusObjectPath any(QStringLiteral("/"));
        const auto active = network_.Ask(NetworkManager::kPath, NetworkManager::kName,
                                         QStringLiteral("ActivateConnection"),
                                         {QVariant::fromValue(QDBusObjectPath(profile)),
                                          QVariant::fromValue(any), QVariant::fromValue(any)});
        if (!active) return false;
        dialled = active->value<QDBusObjectPath>().path();
    }
    return Outcome(dialled, kActivating, kPatience) == kActivated;
}

bool Dialler::HangUp() const {
    constexpr int kPatience = 10'000;  // milliseconds
    const QStringList active_ones = ActiveModems();
    bool all_down = !active_ones.isEmpty();
    for (const QString& active : active_ones) {
        const bool taken = network_
                               .Ask(NetworkManager::kPath, NetworkManager::kName,
                                    QStringLiteral("DeactivateConnection"),
                                    {QVariant::fromValue(QDBusObjectPath(active))})
                               .has_value();
        if (!taken || Outcome(active, kDeactivating, kPatience) != kDeactivated) all_down = false;
    }
    return all_down;
}

QStringList Dialler::ActiveModems() const {
    QStringList modems;
    const QVariant all = network_.Property(NetworkManager::kPath, NetworkManager::kName,
                                           QStringLiteral("ActiveConnections"));
    for (const QString& active : Paths(all)) {
        const QVariant profile =
            network_.Property(active, NetworkManager::kActive, QStringLiteral("Connection"));
        if (IsModem(TypeOf(network_.SettingsOf(profile.value<QDBusObjectPath>().path()))))
            modems.push_back(active);
    }
    return modems;
}

QString Dialler::DefaultProfile() const {
    QString best;
    ConnectionSettings settings_of_best;
    const auto all = network_.Ask(QStringLiteral("/org/freedesktop/NetworkManager/Settings"),
                                  QStringLiteral("org.freedesktop.NetworkManager.Settings"),
                                  QStringLiteral("ListConnections"));
    if (!all) return best;
    for (const QString& profile : Paths(*all)) {
        const ConnectionSettings settings = network_.SettingsOf(profile);
        if (!IsModem(TypeOf(settings))) continue;
        if (!best.isEmpty() && Preference(settings) <= Preference(settings_of_best)) continue;
        if (WouldReplaceAnother(settings)) continue;
        best = profile;
        settings_of_best = settings;
    }
    return best;
}

bool Dialler::WouldReplaceAnother(const ConnectionSettings& settings) const {
    if (TypeOf(settings) != u"pppoe") return false;
    // With a parent it gets a device of its own, and the card goes on with what it carries.
    if (!settings[QStringLiteral("pppoe")][QStringLiteral("parent")].toString().isEmpty())
        return false;
    const QString card =
        settings[QStringLiteral("connection")][QStringLiteral("interface-name")].toString();
    const auto all = network_.Property(NetworkManager::kPath, NetworkManager::kName,
                                       QStringLiteral("ActiveConnections"));
    if (!all.isValid()) return true;
    const QStringList active_ones = Paths(all);
    return std::ranges::any_of(active_ones,
                               [&](const QString& active) { return MayCarry(card, active); });
}

bool Dialler::MayCarry(const QString& card, const QString& active) const {
    if (card.isEmpty()) {
        const QString type =
            network_.Property(active, NetworkManager::kActive, QStringLiteral("Type")).toString();
        return type.isEmpty() || type == u"802-3-ethernet";
    }
    const QVariant devices =
        network_.Property(active, NetworkManager::kActive, QStringLiteral("Devices"));
    if (!devices.isValid()) return true;
    const QStringList used = Paths(devices);
    return std::ranges::any_of(used, [&](const QString& device) {
        const QString name =
            network_
                .Property(device, QStringLiteral("org.freedesktop.NetworkManager.Device"),
                          QStringLiteral("Interface"))
                .toString();
        return name.isEmpty() || name == card;
    });
}

unsigned Dialler::StateOf(const QString& active) const {
    const QVariant state = network_.PropertyUnlessSilent(active, NetworkManager::kActive,
                                                         QStringLiteral("State"), kUnknown);
    return state.isValid() ? state.toUInt() : kDeactivated;
}

unsigned Dialler::Outcome(const QString& active, unsigned passing, int patience) const {
    constexpr unsigned long kBetweenLooks = 100;  // milliseconds
    const QDeadlineTimer deadline(patience);
    unsigned state = StateOf(active);
    while (state <= passing && !deadline.hasExpired()) {
        QThread::msleep(kBetweenLooks);
        state = StateOf(active);
    }
    return state;
}

}  // namespace corvane::linux_desktop
