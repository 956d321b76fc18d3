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
    /// is left as it is, and one that is being set up is waited for. Waits for as long as a modem
    /// may take to register, dial and negotiate, 60 seconds; behind that NetworkManager goes on.
    [[nodiscard]] bool Dial() const;

    /// Takes down all that stand or are being set up, and waits until they are down, for ten
    /// seconds each at most. False when there was none, or one stays.
    [[nodiscard]] bool HangUp() const;

private:
    [[nodiscard]] QStringList ActiveModems() const;
    [[nodiscard]] QString DefaultProfile() const;
    [[nodiscard]] unsigned StateOf(const QString& active) const;
    /// The first state behind `passing`, or the present one when patience is over (milliseconds).
    [[nodiscard]] unsigned Outcome(const QString& active, unsigned passing, int patience) const;

    NetworkManager network_;
};

}  // namespace corvane::linux_desktop
