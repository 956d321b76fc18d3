// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace corvane::linux_desktop {

/// The registry of assistive programs, which runs when the session has accessibility. Programs of
/// some toolkits ask it about each key before they take the key.
class AccessibilityRegistry {
public:
    AccessibilityRegistry() = default;
    ~AccessibilityRegistry();
    AccessibilityRegistry(const AccessibilityRegistry&) = delete;
    AccessibilityRegistry& operator=(const AccessibilityRegistry&) = delete;

    /// Returns once it has answered all that it was asked before, after a quarter of a second at
    /// the latest; false, at once, if there is none.
    bool WaitUntilAllAnswered();

private:
    /// The bus of its own on which it stands; empty if there is none.
    [[nodiscard]] static QString FindBus();

    QString bus_;  // to which we are connected
};

}  // namespace corvane::linux_desktop
