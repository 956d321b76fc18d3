// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cerrno>
#include <fstream>
#include <iterator>

#include "contract/world.h"
#include "linux/files/file_system.h"
#include "linux/qt_message_queue.h"
#include "linux/settings/registry.h"
#include "linux/system/connection.h"
#include "linux/system/disc_players.h"
#include "linux/system/kernel32.h"
#include "linux/system/process_tokens.h"

namespace corvane::testing {
namespace {

/// No optical drive, whatever this machine has.
class NoDevices final : public linux_desktop::DeviceCalls {
public:
    std::vector<std::string> OpticalDrives() override { return {}; }
    linux_desktop::FileDescriptor Open(const std::string& /*device*/, int /*flags*/) override {
        return linux_desktop::FileDescriptor(-1);
    }
    int Control(int /*device*/, unsigned long /*request*/, int /*argument*/) override {
        return ENODEV;
    }
    bool Unmount(const std::string& /*device*/) override { return false; }
};

class LinuxWorld final : public World {
public:
    IFileSystemObject& files() override { return files_; }
    IMessageQueue& queue() override { return queue_; }
    IAdvapi32& registry() override { return registry_; }
    IKernel32& kernel32() override { return kernel32_; }
    IProcessTokens& tokens() override { return tokens_; }
    IWinInet& wininet() override { return connection_; }
    IWinMm& winmm() override { return players_; }
    std::string Folder() const override { return folder_.path().toStdString(); }
    std::string Bytes(const std::string& path) const override {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Put(const std::string& path, const std::string& bytes) override {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    void RunFor(std::chrono::milliseconds span) override {
        QElapsedTimer clock;
        clock.start();
        do {
            QCoreApplication::processEvents(
                QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents, 5);
            queue_.DoEvents();
        } while (clock.elapsed() < span.count());
        queue_.DoEvents();
    }

private:
    int argc_ = 0;
    QCoreApplication application_{argc_, nullptr};
    linux_desktop::FileSystem files_;
    linux_desktop::QtMessageQueue queue_;
    QTemporaryDir folder_;
    linux_desktop::Registry registry_{Folder() + "/registry"};
    linux_desktop::Kernel32 kernel32_{Folder()};
    linux_desktop::ProcessTokens tokens_;
    linux_desktop::Connection connection_;
    linux_desktop::DiscPlayers players_{std::make_shared<NoDevices>()};
};

}  // namespace

std::unique_ptr<World> MakeWorld() {
    return std::make_unique<LinuxWorld>();
}

}  // namespace corvane::testing
