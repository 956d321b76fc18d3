// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <signal.h>

#include <QProcess>
#include <QStringList>
#include <QTest>
#include <algorithm>
#include <stdexcept>

#include "linux/session/windows.h"

namespace corvane::linux_desktop {

constexpr int kBound = 20000;  // milliseconds; a busy machine starts a program in a few

/// Another program with one window, which ends with the test.
class OtherProgram {
public:
    /// Returns when the session knows its window.
    OtherProgram(Windows& session, const QStringList& command) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("NO_AT_BRIDGE", "1");
        process_.setProcessEnvironment(environment);
        process_.start(command.front(), command.mid(1));
        if (!process_.waitForStarted(kBound)) throw std::runtime_error("the program can't start");
        const auto shown = [&] {
            const auto windows = session.List();
            const auto own = std::ranges::find_if(windows, [&](WindowId id) {
                const auto facts = session.Describe(id);
                return facts && facts->process == process_.processId();
            });
            if (own != windows.end()) window_ = *own;
            return own != windows.end();
        };
        if (!QTest::qWaitFor(shown, kBound)) throw std::runtime_error("the program has no window");
    }
    ~OtherProgram() {
        process_.kill();
        process_.waitForFinished();
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    [[nodiscard]] WindowId window() const { return window_; }
    [[nodiscard]] pid_t process() const { return static_cast<pid_t>(process_.processId()); }
    [[nodiscard]] bool Ends() {
        return process_.state() == QProcess::NotRunning || process_.waitForFinished(kBound);
    }
    /// It does nothing any more.
    void Hang() const { ::kill(process(), SIGSTOP); }

private:
    QProcess process_;
    WindowId window_ = 0;
};

inline QStringList Terminal(const QString& title) {
    return {"xterm", "-T", title, "-e", "sleep", "1000"};
}
inline QStringList GtkWindow(const QString& title) {
    return {CORVANE_GTK_WINDOW, title};
}
inline QStringList GtkWindowThatAsks(const QString& title, const QString& question) {
    return {CORVANE_GTK_WINDOW, title, question};
}

}  // namespace corvane::linux_desktop
