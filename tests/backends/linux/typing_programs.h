// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <string>
#include <string_view>

#include "linux/session/x11_connection.h"
#include "temporary_folder.h"

namespace corvane::linux_desktop {

constexpr int kBound = 30000;  // milliseconds; a busy machine needs a part of it

/// Other programs that are typed into. Each writes what has arrived into a file.
enum class TypingProgram { Qt, QtWithAccessibility, Gtk, Terminal };

inline std::string NameOf(TypingProgram program) {
    switch (program) {
        case TypingProgram::Qt:
            return "Qt";
        case TypingProgram::QtWithAccessibility:
            return "QtWithAccessibility";
        case TypingProgram::Gtk:
            return "Gtk";
        case TypingProgram::Terminal:
            return "Terminal";
    }
    return {};
}

class TypedIntoProgram {
public:
    ~TypedIntoProgram() {
        Stop(false);
        process_.kill();
        process_.waitForFinished(kBound);
    }

    /// Returns when it has the focus; false if that never comes.
    bool Start(TypingProgram program) {
        const QString title = "typed into";
        const QString file = QString::fromStdString(folder_ / "typed");
        const QString tools = QCoreApplication::applicationDirPath();
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.remove("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
        if (program == TypingProgram::QtWithAccessibility)
            environment.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
        process_.setProcessEnvironment(environment);
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        if (program == TypingProgram::Terminal) {
            // The terminal's own line editing would keep the last line, and bound its length.
            process_.start("xterm", {"-T", title, "-e", "sh", "-c",
                                     "stty raw -echo; exec cat > \"$0\"", file});
        } else if (program == TypingProgram::Gtk) {
            process_.start("/usr/bin/python3", {TYPING_FIELD_GTK, title, file});
        } else {
            process_.start(tools + "/typing_field", {title, file});
        }
        return process_.waitForStarted(kBound) &&
               QTest::qWaitFor(
                   [&] {
                       return HasFocus(title.toStdString()) &&
                              std::filesystem::exists(folder_ / "typed");
                   },
                   kBound);
    }

    /// What has arrived so far.
    [[nodiscard]] std::string Text() const { return folder_.Bytes("typed"); }
    /// What has arrived once it is as much as that; events of ours run meanwhile.
    [[nodiscard]] std::string TextOnceItIs(std::string_view expected) const {
        (void)QTest::qWaitFor([&] { return Text() == expected; }, kBound);
        return Text();
    }

    /// Halts it as a program that hangs, or lets it go on.
    void Stop(bool stop) const {
        if (process_.processId() > 0)
            ::kill(static_cast<pid_t>(process_.processId()), stop ? SIGSTOP : SIGCONT);
    }

private:
    [[nodiscard]] bool HasFocus(std::string_view title) const {
        const auto focus =
            Answer<xcb_get_input_focus_reply>(x_, xcb_get_input_focus(x_.connection()));
        if (!focus) return false;
        xcb_window_t window = focus->focus;
        while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != x_.root()) {
            const auto name = Answer<xcb_get_property_reply>(
                x_, xcb_get_property(x_.connection(), 0, window, XCB_ATOM_WM_NAME,
                                     XCB_GET_PROPERTY_TYPE_ANY, 0, 64));
            if (name &&
                std::string_view(
                    static_cast<const char*>(xcb_get_property_value(name.get())),
                    static_cast<std::size_t>(xcb_get_property_value_length(name.get()))) == title)
                return true;
            const auto tree =
                Answer<xcb_query_tree_reply>(x_, xcb_query_tree(x_.connection(), window));
            if (!tree) return false;
            window = tree->parent;
        }
        return false;
    }

    X11Connection x_;
    TemporaryFolder folder_;
    QProcess process_;
};

/// Chooses a layout, and the first one again.
class KeyboardLayout {
public:
    explicit KeyboardLayout(const QString& layout, const QStringList& options = {}) {
        QProcess::execute("setxkbmap", QStringList{"-option", "", "-layout", layout} + options);
    }
    ~KeyboardLayout() { QProcess::execute("setxkbmap", {"-option", "", "-layout", "us"}); }
    KeyboardLayout(const KeyboardLayout&) = delete;
    KeyboardLayout& operator=(const KeyboardLayout&) = delete;
};

/// The text in the notation of keys.
inline std::string InNotation(std::string_view text) {
    std::string notation;
    for (const char c : text) {
        const bool has_meaning = std::string_view("+^%~(){}[]").find(c) != std::string_view::npos;
        notation += has_meaning ? std::string{'{', c, '}'} : std::string(1, c);
    }
    return notation;
}

}  // namespace corvane::linux_desktop
