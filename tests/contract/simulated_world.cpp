// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "contract/world.h"
#include "simulated/simulated_desktop.h"

namespace corvane::testing {
namespace {

class SimulatedWorld final : public World {
public:
    IFileSystemObject& files() override { return desktop_.files; }
    IMessageQueue& queue() override { return desktop_.queue; }
    IAdvapi32& registry() override { return desktop_.registry; }
    IKernel32& kernel32() override { return desktop_.machine; }
    IProcessTokens& tokens() override { return desktop_.tokens; }
    IWinInet& wininet() override { return desktop_.machine; }
    IWinMm& winmm() override { return desktop_.disc_tray; }
    std::string Folder() const override { return "/home/somebody"; }
    std::string Bytes(const std::string& path) const override {
        return desktop_.files.Bytes(path).value();
    }
    void Put(const std::string& path, const std::string& bytes) override {
        desktop_.files.Put(path, bytes);
    }
    void RunFor(std::chrono::milliseconds span) override { desktop_.RunFor(span); }

private:
    simulated::SimulatedDesktop desktop_;
};

}  // namespace

std::unique_ptr<World> MakeWorld() {
    return std::make_unique<SimulatedWorld>();
}

}  // namespace corvane::testing
