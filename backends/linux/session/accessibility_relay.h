// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QString>
#include <chrono>
#include <functional>

class QDBusMessage;

namespace corvane::linux_desktop {

/// While a screen reader or the like runs, programs of some toolkits ask the registry of such
/// programs about each key, and take the key only when it has answered. This waits for those keys.
class AccessibilityRelay {
public:
    /// `do_events` lets our own windows work: they ask too.
    explicit AccessibilityRelay(std::function<void()> do_events);
    ~AccessibilityRelay();
    AccessibilityRelay(const AccessibilityRelay&) = delete;
    AccessibilityRelay& operator=(const AccessibilityRelay&) = delete;

    /// Returns when the program has back all keys about which it has asked before, after a second
    /// at the latest. False, at once, if it does not ask.
    bool WaitForKeysOf(pid_t program);

private:
    using Time = std::chrono::steady_clock::time_point;

    /// Connects to the bus of its own on which the registry stands; false if there is none.
    bool Connect(Time end);
    /// Name of the program on that bus; empty if it is not there.
    [[nodiscard]] QString NameOf(pid_t program, Time end);
    [[nodiscard]] QDBusMessage Ask(const QDBusMessage& question, Time end) const;
    /// The same where only our own loop can answer; the answer is of no interest.
    void AskOurselves(const QDBusMessage& question, Time end) const;

    std::function<void()> do_events_;
    bool connected_ = false;
    QString last_name_;  // of the program that was waited for last
};

}  // namespace corvane::linux_desktop
