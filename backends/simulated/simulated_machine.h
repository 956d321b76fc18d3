// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>

#include "platform/advapi32.h"
#include "platform/kernel32.h"
#include "platform/wininet.h"
#include "platform/winmm.h"
#include "simulated/call_record.h"

namespace corvane::simulated {

/// Drives, memory and connection of a machine. They are asked for all the time, so nothing is noted
/// in the record, only in `Asked`. Operations that can be told to fail: GlobalMemoryStatus,
/// InternetGetConnectedState.
class SimulatedMachine final : public IKernel32,
                               public IWinInet,
                               public IProcessTokens,
                               public IWinMm {
public:
    struct Drive {
        ByteCount available = 0;
        ByteCount total = 0;
        ByteCount free = 0;
    };

    /// One drive, on which the program stands: 37 of 100 bytes are free. Half of the memory is.
    explicit SimulatedMachine(CallRecord& record);

    bool GetDiskFreeSpaceExA(const std::string& root, ByteCount& availableToCaller,
                             ByteCount& totalBytes, ByteCount& totalFreeBytes) override;
    void GlobalMemoryStatus(MEMORYSTATUS& status) override;
    HANDLE GetCurrentProcess() override { return 0; }
    bool InternetAutodial(std::uint32_t, HWND) override { return false; }
    bool InternetAutodialHangup(std::uint32_t) override { return false; }
    bool OpenProcessToken(HANDLE, std::uint32_t, HANDLE&) override { return false; }
    bool LookupPrivilegeValueA(const std::string&, const std::string&, LUID&) override {
        return false;
    }
    bool AdjustTokenPrivileges(HANDLE, std::int32_t, const TOKEN_PRIVILEGES&, std::uint32_t,
                               TOKEN_PRIVILEGES&, std::uint32_t&) override {
        return false;
    }
    std::uint32_t mciSendStringA(const std::string&, std::string&, std::uint32_t, HWND) override {
        return 1;
    }
    bool InternetGetConnectedState(std::uint32_t& flags, std::uint32_t reserved) override;

    /// `root` as it is asked for, as in "C:\".
    void PutDrive(const std::string& root, Drive drive) { drives_[root] = drive; }
    void TakeDrive(const std::string& root) { drives_.erase(root); }
    void SetMemory(std::int64_t available, std::int64_t total);
    void SetConnection(bool connected, std::uint32_t flags);

    /// What was asked of the machine since the last look, one question a line.
    [[nodiscard]] std::string Asked();

private:
    CallRecord& record_;
    std::map<std::string, Drive> drives_;
    MEMORYSTATUS memory_;
    bool connected_ = false;
    std::uint32_t flags_ = 0;
    std::string asked_;
};

}  // namespace corvane::simulated
