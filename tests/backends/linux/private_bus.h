// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace corvane::linux_desktop {

/// A message bus of the test's own, on which one of the mocks of tests/desktop plays a part of the
/// machine. Needs a QCoreApplication.
class PrivateBus {
public:
    /// `mock` is the name of its script; without one the bus is empty.
    explicit PrivateBus(const QString& mock) : script_(QStringLiteral(CORVANE_MOCKS "/") + mock) {
        const QString address = "unix:path=" + QDir(folder_.path()).filePath("bus");
        Start(daemon_, {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address",
                        "--address=" + address});
        Expect(daemon_, "unix:");
        environment_.insert("DBUS_SYSTEM_BUS_ADDRESS", address);
        environment_.insert("DBUS_SESSION_BUS_ADDRESS", address);
        serving_.setProcessEnvironment(environment_);
        if (!mock.isEmpty()) Serve();
        QDBusConnection::connectToBus(address, kName);
    }
    ~PrivateBus() {
        QDBusConnection::disconnectFromBus(kName);
        Signal(SIGCONT);
        End(serving_);
        End(daemon_);  // and with it whoever is still on the bus
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] QDBusConnection connection() const { return QDBusConnection(kName); }

    /// Tells the mock something, and returns what it prints.
    std::string Tell(const QStringList& words) const {
        QProcess teller;
        teller.setProcessEnvironment(environment_);
        teller.start(script_, words);
        EXPECT_TRUE(teller.waitForFinished() && teller.exitCode() == 0)
            << teller.readAllStandardError().toStdString();
        return teller.readAllStandardOutput().toStdString();
    }

    /// From now on nobody on it gets an answer.
    void Freeze() { Signal(SIGSTOP); }
    /// It is gone, and all connections to it are cut.
    void Die() {
        daemon_.kill();
        daemon_.waitForFinished();
    }

    /// Starts the mock again after it was ended.
    void Serve() {
        Start(serving_, {script_, "serve"});
        Expect(serving_, "ready");
    }
    /// The mock leaves the bus, with all that it was told.
    void EndServing() {
        ::kill(static_cast<pid_t>(serving_.processId()), SIGINT);
        serving_.waitForFinished();
    }

private:
    static inline const QString kName = QStringLiteral("private");

    void Signal(int number) { ::kill(static_cast<pid_t>(daemon_.processId()), number); }
    static void Start(QProcess& process, const QStringList& command) {
        // However the test ends, they end with it.
        process.start("setpriv", QStringList{"--pdeathsig", "TERM", "--"} + command);
    }
    static void Expect(QProcess& process, const char* word) {
        while (!process.peek(1 << 16).contains(word))
            ASSERT_TRUE(process.waitForReadyRead()) << process.readAllStandardError().toStdString();
    }
    static void End(QProcess& process) {
        process.terminate();
        process.waitForFinished();
    }

    QTemporaryDir folder_;
    QString script_;
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
    QProcess daemon_;
    QProcess serving_;
};

}  // namespace corvane::linux_desktop
