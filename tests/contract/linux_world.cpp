// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <fstream>
#include <iterator>

#include "contract/world.h"
#include "linux/files/file_system.h"
#include "linux/qt_message_queue.h"
#include "linux/settings/registry.h"

namespace corvane::testing {
namespace {

class LinuxWorld final : public World {
public:
    IFileSystemObject& files() override { return files_; }
    IMessageQueue& queue() override { return queue_; }
    IAdvapi32& registry() override { return registry_; }
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
};

}  // namespace

std::unique_ptr<World> MakeWorld() {
    return std::make_unique<LinuxWorld>();
}

}  // namespace corvane::testing
