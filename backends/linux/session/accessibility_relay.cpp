// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/accessibility_relay.h"

#include <unistd.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusReply>
#include <QStringList>
#include <QVariant>
#include <chrono>
#include <thread>
#include <utility>

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPatience{250};  // for each of two answers
constexpr milliseconds kBetweenLooks{1};

const QString kConnection = QStringLiteral("corvane-accessibility");
const QString kRegistry = QStringLiteral("org.a11y.atspi.Registry");
const QString kRoot = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");

/// A question to a service that runs; none is started for it.
QDBusMessage Question(const QString& service, const QString& path, const QString& interface,
                      const QString& method, const QVariantList& arguments = {}) {
    auto question = QDBusMessage::createMethodCall(service, path, interface, method);
    question.setArguments(arguments);
    question.setAutoStartService(false);
    return question;
}

/// The names in a list of programs' objects.
QStringList NamesIn(const QDBusMessage& answer) {
    QStringList names;
    if (answer.signature() != QLatin1String("a(so)")) return names;
    const auto list = answer.arguments().constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QDBusObjectPath path;
        list.beginStructure();
        list >> name >> path;
        list.endStructure();
        names.append(name);
    }
    list.endArray();
    return names;
}

}  // namespace

AccessibilityRelay::AccessibilityRelay(std::function<void()> do_events)
    : do_events_(std::move(do_events)) {}

AccessibilityRelay::~AccessibilityRelay() {
    if (connected_) QDBusConnection::disconnectFromBus(kConnection);
}

bool AccessibilityRelay::Connect() {
    if (connected_ && QDBusConnection(kConnection).isConnected()) return true;
    if (connected_) QDBusConnection::disconnectFromBus(kConnection);
    const auto question = Question("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress");
    const QDBusReply<QString> address = QDBusConnection::sessionBus().call(
        question, QDBus::Block, static_cast<int>(kPatience.count()));
    connected_ = address.isValid() && !address.value().isEmpty();
    if (!connected_) return false;
    return QDBusConnection::connectToBus(address.value(), kConnection).isConnected();
}

QString AccessibilityRelay::NameOf(pid_t program) {
    const auto is_its_name = [&](const QString& name) {
        const QDBusReply<uint> process =
            Ask(Question("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "GetConnectionUnixProcessID", {name}));
        return process.isValid() && std::cmp_equal(process.value(), program);
    };
    if (!last_name_.isEmpty() && is_its_name(last_name_)) return last_name_;
    for (const QString& name : NamesIn(Ask(Question(kRegistry, kRoot, kAccessible, "GetChildren"))))
        if (is_its_name(name)) return last_name_ = name;
    return {};
}

bool AccessibilityRelay::WaitForKeysOf(pid_t program) {
    if (program == 0 || !Connect()) return false;
    const QString name = NameOf(program);
    if (name.isEmpty()) return false;
    // Answers come in the order of the questions: behind this one are those about the keys, ...
    (void)Ask(Question(kRegistry, "/org/a11y/atspi/registry", "org.freedesktop.DBus.Peer", "Ping"));
    // ... and behind this one the program has met with them. It is no ping, which a library would
    // answer while the program is still busy.
    const QDBusMessage question = Question(name, kRoot, kAccessible, "GetRole");
    if (program == ::getpid())
        AskOurselves(question);
    else
        (void)Ask(question);
    return true;
}

QDBusMessage AccessibilityRelay::Ask(const QDBusMessage& question) const {
    return QDBusConnection(kConnection)
        .call(question, QDBus::Block, static_cast<int>(kPatience.count()));
}

void AccessibilityRelay::AskOurselves(const QDBusMessage& question) const {
    const auto end = steady_clock::now() + kPatience;
    const auto call = QDBusConnection(kConnection).asyncCall(question);
    while (!call.isFinished() && steady_clock::now() < end) {
        do_events_();
        std::this_thread::sleep_for(kBetweenLooks);
    }
}

}  // namespace corvane::linux_desktop
