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

constexpr milliseconds kPatience{1000};  // for all answers
constexpr milliseconds kBetweenLooks{1};

const QString kConnection = QStringLiteral("corvane-accessibility");
const QString kRegistry = QStringLiteral("org.a11y.atspi.Registry");
const QString kRoot = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString kKeys = QStringLiteral("/org/a11y/atspi/registry/deviceeventcontroller");
const QString kAccessible = QStringLiteral("org.a11y.atspi.Accessible");

/// A question to a service that runs; none is started for it.
QDBusMessage Question(const QString& service, const QString& path, const QString& interface,
                      const QString& method, const QVariantList& arguments = {}) {
    auto question = QDBusMessage::createMethodCall(service, path, interface, method);
    question.setArguments(arguments);
    question.setAutoStartService(false);
    return question;
}

/// Asks and waits; an invalid message if there is no answer by the end.
QDBusMessage AskOn(const QDBusConnection& bus, const QDBusMessage& question,
                   steady_clock::time_point end) {
    const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
    if (left <= milliseconds(0)) return {};
    return bus.call(question, QDBus::Block, static_cast<int>(left.count()));
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

bool AccessibilityRelay::Connect(Time end) {
    if (connected_ && QDBusConnection(kConnection).isConnected()) return true;
    if (connected_) QDBusConnection::disconnectFromBus(kConnection);
    const auto question = Question("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress");
    const QDBusReply<QString> address = AskOn(QDBusConnection::sessionBus(), question, end);
    connected_ = address.isValid() && !address.value().isEmpty();
    if (!connected_) return false;
    return QDBusConnection::connectToBus(address.value(), kConnection).isConnected();
}

QString AccessibilityRelay::NameOf(pid_t program, Time end) {
    const auto is_its_name = [&](const QString& name) {
        const QDBusReply<uint> process =
            Ask(Question("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "GetConnectionUnixProcessID", {name}),
                end);
        return process.isValid() && std::cmp_equal(process.value(), program);
    };
    if (!last_name_.isEmpty() && is_its_name(last_name_)) return last_name_;
    const auto children = Ask(Question(kRegistry, kRoot, kAccessible, "GetChildren"), end);
    for (const QString& name : NamesIn(children))
        if (is_its_name(name)) return last_name_ = name;
    return {};
}

bool AccessibilityRelay::WaitForKeysOf(pid_t program) {
    const Time end = steady_clock::now() + kPatience;
    if (program == 0 || !Connect(end)) return false;
    const QString name = NameOf(program, end);
    if (name.isEmpty()) return false;
    // No ping, which a library would answer while the program is still busy.
    const QDBusMessage question = Question(name, kRoot, kAccessible, "GetRole");
    const auto ask_program = [&] {
        if (program == ::getpid())
            AskOurselves(question, end);
        else
            (void)Ask(question, end);
    };
    // What a program has to send is sent by another of its threads: behind this answer its
    // questions about the keys are under way.
    ask_program();
    // The registry puts questions about keys aside, and others to the same object behind them; any
    // other object of it answers at once. So behind this answer are those about the keys, ...
    (void)Ask(Question(kRegistry, kKeys, "org.a11y.atspi.DeviceEventController",
                       "GetDeviceEventListeners"),
              end);
    // ... and behind this one the program has met with them.
    ask_program();
    return true;
}

QDBusMessage AccessibilityRelay::Ask(const QDBusMessage& question, Time end) const {
    return AskOn(QDBusConnection(kConnection), question, end);
}

void AccessibilityRelay::AskOurselves(const QDBusMessage& question, Time end) const {
    const auto call = QDBusConnection(kConnection).asyncCall(question);
    while (!call.isFinished() && steady_clock::now() < end) {
        do_events_();
        std::this_thread::sleep_for(kBetweenLooks);
    }
}

}  // namespace corvane::linux_desktop
