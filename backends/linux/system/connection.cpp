// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/connection.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <array>

#include "linux/system/default_route.h"

namespace corvane::linux_desktop {
namespace {

const QString kNetworkManager = QStringLiteral("org.freedesktop.NetworkManager");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
constexpr unsigned kConnectedToTheSite = 60;  // and further, up to the whole world
constexpr int kQuestionsAProxyStands = 5;

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

bool IsModem(const QString& type) {
    return type == u"gsm" || type == u"cdma" || type == u"pppoe" || type == u"adsl";
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

Connection::Connection() : proxy_(ProxyInEnvironment()) {
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

void Connection::AskNetworkManager() {
    if (asking_) return;  // one question at a time, however long the answer takes
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) return;
    asking_ = true;
    QDBusMessage question = QDBusMessage::createMethodCall(
        kNetworkManager, QStringLiteral("/org/freedesktop/NetworkManager"), kProperties,
        QStringLiteral("GetAll"));
    question << kNetworkManager;
    question.setAutoStartService(false);
    Ask<QVariantMap>(bus, question, owner_, [this](const QDBusPendingReply<QVariantMap>& reply) {
        asking_ = false;
        if (reply.isError())
            state_.reset();
        else
            TakeProperties(reply.value());
    });
}

void Connection::TakeProperties(const QVariantMap& properties) {
    NetworkState state = state_.value_or(NetworkState());
    state.connected = properties.value(QStringLiteral("State")).toUInt() >= kConnectedToTheSite;
    state.type = properties.value(QStringLiteral("PrimaryConnectionType")).toString();
    const QString activating =
        properties.value(QStringLiteral("ActivatingConnection")).value<QDBusObjectPath>().path();
    const bool none = activating.isEmpty() || activating == u"/";
    if (none) state.activating_type.clear();
    state_ = state;
    if (!none) AskTypeOfActivating(activating);
}

void Connection::AskTypeOfActivating(const QString& path) {
    QDBusMessage question =
        QDBusMessage::createMethodCall(kNetworkManager, path, kProperties, QStringLiteral("Get"));
    question << kNetworkManager + QStringLiteral(".Connection.Active") << QStringLiteral("Type");
    Ask<QDBusVariant>(QDBusConnection::systemBus(), question, owner_,
                      [this](const QDBusPendingReply<QDBusVariant>& reply) {
                          if (!state_) return;
                          state_->activating_type =
                              reply.isError() ? QString() : reply.value().variant().toString();
                      });
}

void Connection::AskProxy() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
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
