// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/linux_platform.h"

#include <QApplication>
#include <QDBusConnection>
#include <QStandardPaths>
#include <iostream>
#include <utility>

#include "engine/audio/pulse_capture.h"
#include "engine/speech_engine.h"
#include "linux/desktop_clipboard.h"
#include "linux/display.h"
#include "linux/files/file_system.h"
#include "linux/linux_runtime.h"
#include "linux/printing/printer.h"
#include "linux/qt_message_queue.h"
#include "linux/session/accessibility_relay.h"
#include "linux/session/x11_keys.h"
#include "linux/settings/registry.h"
#include "linux/shell/automation.h"
#include "linux/shell/shell32.h"
#include "linux/system/connection.h"
#include "linux/system/device_calls.h"
#include "linux/system/disc_players.h"
#include "linux/system/kernel32.h"
#include "linux/system/process_tokens.h"
#include "linux/system/session_end.h"
#include "linux/training/pronunciation_voice.h"
#include "linux/training/training_dialogs.h"
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

/// What the user's sound settings call the program.
constexpr const char* kSoundName = "KT Corvane";

std::unique_ptr<engine::AudioSource> OpenMicrophone() {
    return std::make_unique<engine::PulseCapture>(kSoundName);
}

/// Voice and words of whoever runs the program lie among their data.
SpeechEngineConfig ConfigurationOfPerson() {
    SpeechEngineConfig config;
    config.user_folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString() +
        "/corvane";
    config.complain = [](const std::string& line) {
        std::cerr << "KT Corvane: " << line << '\n' << std::flush;
    };
    const auto voice = std::make_shared<PronunciationVoice>(kSoundName);
    config.dialogs = std::make_shared<TrainingDialogs>(
        TrainingDialogs::Means{.open_microphone = OpenMicrophone,
                               .say = [voice](const std::string& phones) { voice->Say(phones); },
                               .hush = [voice] { voice->Hush(); }});
    return config;
}

}  // namespace

struct LinuxPlatform::World {
    World(int& argc, char** argv)
        : qt(argc, argv),
          runtime(std::make_unique<X11Keys>(
              [this] { messages.DoEvents(); },
              [this](pid_t program) { return relay.WaitForKeysOf(program); })),
          speech(
              ConfigurationOfPerson(),
              [this](std::function<void()> message) { messages.Post(std::move(message)); },
              OpenMicrophone()) {}

    QtApplication qt;
    QtMessageQueue messages;
    FileSystem files;
    AccessibilityRelay relay{[this] { messages.DoEvents(); }};
    LinuxRuntime runtime;
    DesktopClipboard clipboard{MakeSessionClipboard()};
    QtToolkit windows{runtime.ExecutableFolder() + "/pictures"};
    Automation automation;
    Registry registry{Registry::FileOfPerson()};
    Shell32 shell;
    QDBusConnection system_bus = QDBusConnection::systemBus();
    ProcessTokens tokens;
    SessionEnd session_end{system_bus, tokens};
    User32 user32{MakeSessionWindows(), windows.Controls(), windows.Gdi32(), &session_end};
    Kernel32 kernel32{runtime.ExecutableFolder()};
    Connection connection{system_bus};
    DiscPlayers players{std::make_shared<MachineDevices>(system_bus)};
    Printer printer{windows.Gdi32(), windows.ChosenPrinter()};
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
            .shell32 = world_->shell,
            .user32 = world_->user32,
            .clipboard = world_->clipboard,
            .gdi32 = world_->windows.Gdi32(),
            .kernel32 = world_->kernel32,
            .wininet = world_->connection,
            .tokens = world_->tokens,
            .winmm = world_->players,
            .printer = world_->printer};
}

}  // namespace corvane
