// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace corvane::linux_desktop {

/// Nobody in particular, for as long as it lives: nothing can be forbidden to the superuser, as
/// whom tests may run. For everybody else it changes nothing.
class Unprivileged {
public:
    Unprivileged() {
        if (person_ != 0) return;
        Become(kNobody);
    }
    ~Unprivileged() {
        if (person_ == 0) Become(0);
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

    /// Does something as the superuser, if that is who runs the tests; whether it could.
    template <class Act>
    bool AsSuperuser(Act act) const {
        if (person_ != 0) return false;
        Become(0);
        act();
        Become(kNobody);
        return true;
    }

private:
    static constexpr uid_t kNobody = 65534;

    static void Become(uid_t person) {
        if (::seteuid(person) == 0) return;
        std::perror("seteuid");
        std::abort();
    }

    uid_t person_ = ::geteuid();
};

}  // namespace corvane::linux_desktop
