// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/winmm.h"
#include "simulated/call_record.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// The one tray for discs of a machine; it takes three seconds to move, and `queue` stands still
/// for whoever waits.
class DiscTray final : public IWinMm {
public:
    DiscTray(CallRecord& record, VirtualQueue& queue) : record_(record), queue_(queue) {}

    std::uint32_t mciSendStringA(const std::string& command, std::string& reply,
                                 std::uint32_t replyLength, HWND callback) override;

    [[nodiscard]] bool IsOpen() const { return open_; }
    /// A person moves the tray by hand.
    void Push(bool open) { open_ = open; }
    /// A machine without a drive.
    void TakeAway() { there_ = false; }

private:
    CallRecord& record_;
    VirtualQueue& queue_;
    bool there_ = true;
    bool open_ = false;
};

}  // namespace corvane::simulated
