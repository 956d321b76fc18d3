// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/kernel32.h"
#include "platform/wininet.h"
#include "simulated/call_record.h"
#include "simulated/virtual_queue.h"

namespace corvane::simulated {

/// Drives, memory and connection of a machine. What is asked for all the time is not noted in the
/// record, only in `Asked`; what is done to the machine is in the record. Operations that can be
/// told to fail: GlobalMemoryStatus, InternetGetConnectedState.
class SimulatedMachine final : public IKernel32, public IWinInet {
public:
    struct Drive {
        ByteCount available = 0;
        ByteCount total = 0;
        ByteCount free = 0;
    };

    /// One drive, the C on which the program stands: 37 of 100 bytes are free. Half of the memory
    /// is. A modem that takes twenty seconds to dial. `queue` stands still while it does.
    SimulatedMachine(CallRecord& record, VirtualQueue& queue);

    bool GetDiskFreeSpaceExA(const std::string& root, ByteCount& availableToCaller,
                             ByteCount& totalBytes, ByteCount& totalFreeBytes) override;
    void GlobalMemoryStatus(MEMORYSTATUS& status) override;
    HANDLE GetCurrentProcess() override;
    bool InternetGetConnectedState(std::uint32_t& flags, std::uint32_t reserved) override;
    bool InternetAutodial(std::uint32_t flags, HWND parent) override;
    bool InternetAutodialHangup(std::uint32_t reserved) override;

    /// `root` as it is asked for, as in "C:\", or "/:\" for the program's own, which has no letter.
    void PutDrive(const std::string& root, Drive drive);
    /// A drive without a disc.
    void PutEmptyDrive(const std::string& root);
    /// The list of drives names that one once more.
    void ListAgain(char letter) { letters_.push_back(letter); }
    void TakeDrive(const std::string& root);
    [[nodiscard]] std::vector<DriveObject> Drives() const;

    void SetMemory(std::int64_t available, std::int64_t total);
    void SetConnection(bool connected, std::uint32_t flags);
    /// Whether anybody answers when the modem dials.
    void SetLine(bool answered) { line_answers_ = answered; }

    /// What was asked of the machine since the last look, one question a line.
    [[nodiscard]] std::string Asked();

private:
    CallRecord& record_;
    VirtualQueue& queue_;
    std::map<std::string, std::optional<Drive>> drives_;  // nothing: not ready
    std::vector<char> letters_;                           // in alphabetical order
    MEMORYSTATUS memory_;
    bool connected_ = false;
    std::uint32_t flags_ = 0;
    bool line_answers_ = true;
    std::string asked_;
};

}  // namespace corvane::simulated
