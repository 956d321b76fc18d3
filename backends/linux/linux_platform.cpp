// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/linux_platform.h"

#include <QApplication>
#include <QStandardPaths>
#include <iostream>
#include <utility>

#include "engine/audio/pulse_capture.h"
#include "engine/speech_engine.h"
#include "linux/desktop_clipboard.h"
#include "linux/display.h"
#include "linux/files/file_system.h"
#include "linux/linux_runtime.h"
#include "linux/qt_message_queue.h"
#include "linux/session/x11_keys.h"
#include "linux/settings/registry.h"
#include "linux/shell/automation.h"
#include "linux/shell/tray.h"
#include "linux/system/connection.h"
#include "linux/system/kernel32.h"
#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"

namespace corvane {
namespace {

using namespace linux_desktop;

/// Qt's own, set up for programs that decide themselves when they end.
class QtApplication {
public:
    QtApplication(int& argc, char** argv) : application_(argc, argv) {
        QApplication::setApplicationName("corvane");
        QApplication::setApplicationDisplayName({});
        QApplication::setQuitOnLastWindowClosed(false);
    }

private:
    struct Display {
        Display() { RequireDisplay(); }
    } display_;
    QApplication application_;
};

/// Voice and words of whoever runs the program lie among their data.
SpeechEngineConfig ConfigurationOfPerson() {
    SpeechEngineConfig config;
    config.user_folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString() +
        "/corvane";
    config.complain = [](const std::string& line) {
        std::cerr << "KT Corvane: " << line << '\n' << std::flush;
    };
    return config;
}

}  // namespace

struct LinuxPlatform::World {
    World(int& argc, char** argv)
        : qt(argc, argv),
          runtime(std::make_unique<X11Keys>([this] { messages.DoEvents(); })),
          speech(
              ConfigurationOfPerson(),
              [this](std::function<void()> message) { messages.Post(std::move(message)); },
              std::make_unique<engine::PulseCapture>("KT Corvane")) {}

    QtApplication qt;
    QtMessageQueue messages;
    FileSystem files;
    LinuxRuntime runtime;
    DesktopClipboard clipboard{MakeSessionClipboard()};
    QtToolkit windows{runtime.ExecutableFolder() + "/pictures"};
    Automation automation;
    Registry registry{Registry::FileOfPerson()};
    Tray tray;
    User32 user32;
    Kernel32 kernel32{runtime.ExecutableFolder()};
    Connection connection;
    SpeechEngine speech;  // last: its thread posts to the messages
};

LinuxPlatform::LinuxPlatform(int& argc, char** argv)
    : world_(std::make_unique<World>(argc, argv)) {}

LinuxPlatform::~LinuxPlatform() = default;

Platform LinuxPlatform::Parts() {
    return {.runtime = world_->runtime,
            .messages = world_->messages,
            .files = world_->files,
            .windows = world_->windows,
            .speech = world_->speech,
            .automation = world_->automation,
            .advapi32 = world_->registry,
            .shell32 = world_->tray,
            .user32 = world_->user32,
            .clipboard = world_->clipboard,
            .gdi32 = world_->windows.Gdi32(),
            .kernel32 = world_->kernel32,
            .wininet = world_->connection};
}

}  // namespace corvane
