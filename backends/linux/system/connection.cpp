// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/connection.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <array>

#include "linux/system/default_route.h"

namespace corvane::linux_desktop {
namespace {

const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
constexpr unsigned kConnectedToTheSite = 60;  // and further, up to the whole world
constexpr int kQuestionsAProxyStands = 5;
const QString kBluetooth = QStringLiteral("bluetooth");

QDBusMessage PropertyQuestion(const QString& active, const QString& name) {
    QDBusMessage question = QDBusMessage::createMethodCall(NetworkManager::kName, active,
                                                           kProperties, QStringLiteral("Get"));
    question << NetworkManager::kActive << name;
    return question;
}

/// Calls, and hands the answer to `take`, unless `owner` has gone by then.
template <class Reply, class Take>
void Ask(const QDBusConnection& bus, const QDBusMessage& question, QObject& owner, Take take) {
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), &owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &owner,
                     [take](QDBusPendingCallWatcher* finished) {
                         const QDBusPendingReply<Reply> reply = *finished;
                         finished->deleteLater();
                         take(reply);
                     });
}

bool ProxyInEnvironment() {
    constexpr std::array<const char*, 6> kNames{"http_proxy",  "HTTP_PROXY", "https_proxy",
                                                "HTTPS_PROXY", "all_proxy",  "ALL_PROXY"};
    for (const char* name : kNames)
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

}  // namespace

std::uint32_t FlagsOf(const NetworkState& state, bool proxy) {
    std::uint32_t flags = 0;
    if (state.connected && IsModem(state.type)) flags |= INTERNET_CONNECTION_MODEM;
    if (state.connected && !state.type.isEmpty() && !IsModem(state.type))
        flags |= INTERNET_CONNECTION_LAN;
    if (state.connected && proxy) flags |= INTERNET_CONNECTION_PROXY;
    if (IsModem(state.activating_type)) flags |= INTERNET_CONNECTION_MODEM_BUSY;
    return flags;
}

Connection::Connection(const QDBusConnection& system_bus)
    : bus_(system_bus), network_(bus_), dialler_(bus_), proxy_(ProxyInEnvironment()) {
    AskNetworkManager();
}

bool Connection::InternetGetConnectedState(std::uint32_t& flags, std::uint32_t /*reserved*/) {
    AskNetworkManager();
    if (--until_proxy_ <= 0) {
        until_proxy_ = kQuestionsAProxyStands;
        AskProxy();
    }
    const NetworkState state = state_ ? *state_ : StateByRoute();
    flags = FlagsOf(state, proxy_);
    return state.connected;
}

bool Connection::InternetAutodial(std::uint32_t /*flags*/, HWND /*parent*/) {
    const bool stands = dialler_.Dial();
    WaitForNetworkManager();
    return stands;
}

bool Connection::InternetAutodialHangup(std::uint32_t /*reserved*/) {
    const bool hung_up = dialler_.HangUp();
    WaitForNetworkManager();
    return hung_up;
}

void Connection::WaitForNetworkManager() {
    ++times_waited_;
    const auto properties = network_.Ask(NetworkManager::kPath, kProperties,
                                         QStringLiteral("GetAll"), {NetworkManager::kName});
    if (properties) TakeProperties(qdbus_cast<QVariantMap>(*properties));
}

void Connection::AskNetworkManager() {
    if (!bus_.isConnected()) {
        state_.reset();  // what it said last holds no longer than it can be asked
        return;
    }
    if (asking_) return;  // one question at a time, however long the answer takes
    asking_ = true;
    QDBusMessage question = QDBusMessage::createMethodCall(
        NetworkManager::kName, NetworkManager::kPath, kProperties, QStringLiteral("GetAll"));
    question << NetworkManager::kName;
    question.setAutoStartService(false);
    const auto take = [this, asked = times_waited_](const QDBusPendingReply<QVariantMap>& reply) {
        asking_ = false;
        if (asked != times_waited_) return;  // something newer is known by now
        if (reply.isError())
            state_.reset();
        else
            TakeProperties(reply.value());
    };
    Ask<QVariantMap>(bus_, question, owner_, take);
}

void Connection::TakeProperties(const QVariantMap& properties) {
    const auto path = [&](const QString& name) {
        const QString value = properties.value(name).value<QDBusObjectPath>().path();
        return value == u"/" ? QString() : value;
    };
    NetworkState state = state_.value_or(NetworkState());
    state.connected = properties.value(QStringLiteral("State")).toUInt() >= kConnectedToTheSite;
    const QString type = properties.value(QStringLiteral("PrimaryConnectionType")).toString();
    // What was found out about this one holds until it is found out again.
    if (type != kBluetooth || state.type != kBluetoothModem) state.type = type;
    const QString activating = path(QStringLiteral("ActivatingConnection"));
    if (activating.isEmpty()) state.activating_type.clear();
    state_ = state;
    if (type == kBluetooth)
        AskProfileOf(path(QStringLiteral("PrimaryConnection")), &NetworkState::type);
    if (!activating.isEmpty()) AskTypeOfActivating(activating);
}

void Connection::AskTypeOfActivating(const QString& path) {
    Ask<QDBusVariant>(bus_, PropertyQuestion(path, QStringLiteral("Type")), owner_,
                      [this, path](const QDBusPendingReply<QDBusVariant>& reply) {
                          if (!state_) return;
                          const QString type =
                              reply.isError() ? QString() : reply.value().variant().toString();
                          state_->activating_type = type;
                          if (type == kBluetooth)
                              AskProfileOf(path, &NetworkState::activating_type);
                      });
}

void Connection::AskProfileOf(const QString& path, QString NetworkState::*type) {
    if (path.isEmpty()) return;
    const auto take = [this, type](const QDBusPendingReply<ConnectionSettings>& reply) {
        if (state_ && !reply.isError()) (*state_).*type = TypeOf(reply.value());
    };
    Ask<QDBusVariant>(bus_, PropertyQuestion(path, QStringLiteral("Connection")), owner_,
                      [this, take](const QDBusPendingReply<QDBusVariant>& reply) {
                          if (reply.isError()) return;
                          const auto profile = reply.value().variant().value<QDBusObjectPath>();
                          Ask<ConnectionSettings>(
                              bus_, NetworkManager::SettingsQuestion(profile.path()), owner_, take);
                      });
}

void Connection::AskProxy() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        proxy_ = ProxyInEnvironment();
        return;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.ProxyResolver"), QStringLiteral("Lookup"));
    question << QStringLiteral("http://www.example.org/");
    Ask<QStringList>(bus, question, owner_, [this](const QDBusPendingReply<QStringList>& reply) {
        if (reply.isError())
            proxy_ = ProxyInEnvironment();
        else
            proxy_ = !reply.value().isEmpty() && !reply.value().first().startsWith(u"direct:");
    });
}

NetworkState Connection::StateByRoute() const {
    const auto device = PresentDefaultRoute();
    if (!device) return {};
    return {.connected = true,
            .type = IsModemDevice(*device) ? QStringLiteral("gsm") : QStringLiteral("ethernet"),
            .activating_type = {}};
}

}  // namespace corvane::linux_desktop
