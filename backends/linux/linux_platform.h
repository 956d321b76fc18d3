// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/platform.h"

namespace corvane {

/// The Linux desktop. It owns all that the system asks for and must outlive the system; one a
/// process.
class LinuxPlatform {
public:
    /// Ends the process with status 1 and a message on stderr if there is no display. `argc` and
    /// `argv` must stay valid and are Qt's to change.
    LinuxPlatform(int& argc, char** argv);
    ~LinuxPlatform();

    LinuxPlatform(const LinuxPlatform&) = delete;
    LinuxPlatform& operator=(const LinuxPlatform&) = delete;

    /// The parts; valid for as long as this object.
    [[nodiscard]] Platform Parts();

private:
    struct World;
    std::unique_ptr<World> world_;
};

}  // namespace corvane
