// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "linux/system/device_calls.h"
#include "platform/winmm.h"

namespace corvane::linux_desktop {

/// The trays of the optical drives. A disc that the desktop has mounted is unmounted before its
/// tray opens; one that is in use keeps it closed.
class DiscPlayers final : public IWinMm {
public:
    explicit DiscPlayers(std::shared_ptr<DeviceCalls> devices);

    /// Answers with a MediaResult. A command without "Wait" is carried out on the side: success
    /// then says that there is a drive.
    std::uint32_t mciSendStringA(const std::string& command, std::string& reply,
                                 std::uint32_t replyLength, HWND callback) override;

private:
    std::shared_ptr<DeviceCalls> devices_;
};

}  // namespace corvane::linux_desktop
