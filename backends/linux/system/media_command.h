// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace corvane::linux_desktop {

/// What comes of a command of the Media Control Interface, by that interface's own numbers.
enum MediaResult : std::uint32_t {
    kMediaDone = 0,
    kMediaUnknownKeyword = 259,
    kMediaUnknownCommand = 261,
    kMediaHardwareFailed = 262,
    kMediaUnknownDevice = 263,
    kMediaMissingParameter = 273,
    kMediaNoDevice = 306,
};

/// What is to become of a tray.
struct DoorCommand {
    bool open = false;
    bool wait = false;  ///< until it has moved
};

/// Reads "Set CDAudio Door Open" or "... Closed", with "Wait", "Notify" or both behind it: words of
/// any case with blanks between them. Sets `door` and returns kMediaDone, or what is wrong.
[[nodiscard]] MediaResult ParseDoorCommand(const std::string& command, DoorCommand& door);

}  // namespace corvane::linux_desktop
