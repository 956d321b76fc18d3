// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include "linux/system/network_manager.h"

namespace corvane::linux_desktop {

/// Dials through NetworkManager and hangs up. It only ever touches connections through a modem or
/// PPP; without NetworkManager it does nothing.
class Dialler {
public:
    explicit Dialler(QDBusConnection bus);

    /// Activates the default one of the profiles, which is one that connects by itself if there is
    /// such a one, else the one used last, and returns whether it stands. One that stands already
    /// is left as it is, and one that is being set up is waited for. PPP over an Ethernet card that
    /// carries something else is not dialled where it would take the card over. Waits for as long
    /// as a modem may take to register, dial and negotiate, 60 seconds; behind that NetworkManager
    /// goes on.
    [[nodiscard]] bool Dial() const;

    /// Takes down all that stand or are being set up, and waits until they are down, for ten
    /// seconds each at most. False when there was none, or one stays.
    [[nodiscard]] bool HangUp() const;

private:
    [[nodiscard]] QStringList ActiveModems() const;
    [[nodiscard]] QString DefaultProfile() const;
    /// Whether activating a profile would end another connection, which it does where it needs a
    /// network card for itself. True also where that can't be told.
    [[nodiscard]] bool WouldReplaceAnother(const ConnectionSettings& settings) const;
    /// Whether an Ethernet card, any if `card` is empty, may be in use by an active connection.
    [[nodiscard]] bool MayCarry(const QString& card, const QString& active) const;
    [[nodiscard]] unsigned StateOf(const QString& active) const;
    /// The first state behind `passing`, or the present one when patience is over (milliseconds).
    [[nodiscard]] unsigned Outcome(const QString& active, unsigned passing, int patience) const;

    NetworkManager network_;
};

}  // namespace corvane::linux_desktop
