// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/advapi32.h"
#include "platform/automation.h"
#include "platform/kernel32.h"
#include "platform/language_runtime.h"
#include "platform/wininet.h"
#include "platform/winmm.h"

namespace corvane::testing {

/// One backend as the contract's tests see it. Each test program links the world of one backend.
class World {
public:
    virtual ~World() = default;
    [[nodiscard]] virtual IFileSystemObject& files() = 0;
    [[nodiscard]] virtual IMessageQueue& queue() = 0;
    /// Empty at first.
    [[nodiscard]] virtual IAdvapi32& registry() = 0;
    /// Of a machine whose program stands in `Folder`. What would end a session, empty a bin or move
    /// a tray is no matter for these tests: the machine may be somebody's own.
    [[nodiscard]] virtual IKernel32& kernel32() = 0;
    [[nodiscard]] virtual IProcessTokens& tokens() = 0;
    [[nodiscard]] virtual IWinInet& wininet() = 0;
    [[nodiscard]] virtual IWinMm& winmm() = 0;
    /// A folder that exists and is the test's own, without a separator at its end.
    [[nodiscard]] virtual std::string Folder() const = 0;
    /// The bytes of a file that is there.
    [[nodiscard]] virtual std::string Bytes(const std::string& path) const = 0;
    virtual void Put(const std::string& path, const std::string& bytes) = 0;
    /// Lets messages run for that long.
    virtual void RunFor(std::chrono::milliseconds span) = 0;
};

[[nodiscard]] std::unique_ptr<World> MakeWorld();

}  // namespace corvane::testing
