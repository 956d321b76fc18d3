// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <optional>

#include "linux/system/dialler.h"
#include "linux/system/network_manager.h"
#include "platform/wininet.h"

namespace corvane::linux_desktop {

/// What NetworkManager says of the machine's connection.
struct NetworkState {
    bool connected = false;
    QString type;             ///< of the connection that carries the default route
    QString activating_type;  ///< of the one that is being set up; empty if none is
};

/// The flags of a state.
[[nodiscard]] std::uint32_t FlagsOf(const NetworkState& state, bool proxy);

/// Asks NetworkManager and the desktop's proxy settings, and answers with what they said last, so
/// that nobody ever waits for them. Without NetworkManager the default route tells. Only dialling
/// and hanging up wait (linux/system/dialler.h); behind them the answer is a fresh one, so that the
/// next question finds what has come of them.
class Connection final : public IWinInet {
public:
    /// NetworkManager is on `system_bus`.
    explicit Connection(const QDBusConnection& system_bus = QDBusConnection::systemBus());

    bool InternetGetConnectedState(std::uint32_t& flags, std::uint32_t reserved) override;
    bool InternetAutodial(std::uint32_t flags, HWND parent) override;
    bool InternetAutodialHangup(std::uint32_t reserved) override;

private:
    void AskNetworkManager();
    void WaitForNetworkManager();
    void TakeProperties(const QVariantMap& properties);
    void AskTypeOfActivating(const QString& path);
    void AskProfileOf(const QString& path, QString NetworkState::*type);
    void AskProxy();
    [[nodiscard]] NetworkState StateByRoute() const;

    QDBusConnection bus_;
    NetworkManager network_;
    Dialler dialler_;
    QObject owner_;  // of the answers that are waited for
    bool asking_ = false;
    int times_waited_ = 0;
    std::optional<NetworkState> state_;  // as far as NetworkManager is there
    bool proxy_ = false;
    int until_proxy_ = 0;  // questions until the proxy is asked for again
};

}  // namespace corvane::linux_desktop
