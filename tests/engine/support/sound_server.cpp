// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound_server.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <thread>

namespace corvane::engine::testing {
namespace {

std::filesystem::path MakeFolder() {
    std::string name = std::filesystem::temp_directory_path() / "corvane-sound-XXXXXX";
    return mkdtemp(name.data());
}

}  // namespace

SoundServer::SoundServer() : folder_(MakeFolder()) {
    const std::string socket = folder_ / "socket";
    std::ofstream(folder_ / "script.pa")
        << "load-module module-null-sink sink_name=speaker norewinds=1\n"
        << "set-default-sink speaker\n"
        << "load-module module-native-protocol-unix auth-anonymous=1 socket=" << socket << '\n';
    if (const char* server = std::getenv("PULSE_SERVER")) former_server_ = server;
    setenv("PULSE_SERVER", ("unix:" + socket).c_str(), 1);
}

SoundServer::~SoundServer() {
    Kill();
    std::filesystem::remove_all(folder_);
    if (former_server_.empty())
        unsetenv("PULSE_SERVER");
    else
        setenv("PULSE_SERVER", former_server_.c_str(), 1);
}

bool SoundServer::Start() {
    const std::string script = folder_ / "script.pa";
    process_ = fork();
    if (process_ == 0) {
        // The desktop's own server holds the name on its bus.
        execlp("env", "env", "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere", "pulseaudio", "-n",
               "-F", script.c_str(), "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
               "--realtime=no", "--high-priority=no", "--log-level=0", nullptr);
        std::_Exit(127);
    }
    for (int attempt = 0; attempt < 200; ++attempt) {
        if (Tell("info")) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
}

void SoundServer::Kill() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
    // What is left of it would keep its successor from the place.
    std::filesystem::remove(folder_ / "socket");
}

void SoundServer::Freeze() const {
    kill(process_, SIGSTOP);
}

void SoundServer::Thaw() const {
    kill(process_, SIGCONT);
}

bool SoundServer::Tell(const std::string& arguments) {
    return std::system(("pactl " + arguments + " > /dev/null 2>&1").c_str()) == 0;
}

bool SoundServer::Plug(const std::string& name, int frequency) {
    // The server's own source of a tone delivers two seconds at a time, as no microphone does.
    return Tell("load-module module-null-sink norewinds=1 rate=44100 channels=1 sink_name=" + name +
                "_room") &&
           Tell("load-module module-sine sink=" + name +
                "_room frequency=" + std::to_string(frequency)) &&
           Tell("load-module module-remap-source source_name=" + name + " master=" + name +
                "_room.monitor");
}

bool SoundServer::Unplug(const std::string& name) {
    for (const std::string& part : {"source_name=" + name, "sink=" + name, "sink_name=" + name})
        if (!Tell("unload-module $(pactl list short modules | grep " + part +
                  " | head -n 1 | cut -f1)"))
            return false;
    return true;
}

}  // namespace corvane::engine::testing
