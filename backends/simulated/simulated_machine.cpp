// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_machine.h"

#include <utility>

namespace corvane::simulated {

SimulatedMachine::SimulatedMachine(CallRecord& record) : record_(record) {
    PutDrive("/:\\", {.available = 30, .total = 100, .free = 37});
    SetMemory(std::int64_t{4} << 30, std::int64_t{8} << 30);
}

bool SimulatedMachine::GetDiskFreeSpaceExA(const std::string& root, ByteCount& availableToCaller,
                                           ByteCount& totalBytes, ByteCount& totalFreeBytes) {
    asked_ += "GetDiskFreeSpaceExA " + root + "\n";
    const auto drive = drives_.find(root);
    if (drive == drives_.end()) return false;
    availableToCaller = drive->second.available;
    totalBytes = drive->second.total;
    totalFreeBytes = drive->second.free;
    return true;
}

void SimulatedMachine::GlobalMemoryStatus(MEMORYSTATUS& status) {
    asked_ += "GlobalMemoryStatus\n";
    record_.Quietly("GlobalMemoryStatus");
    status = memory_;
}

bool SimulatedMachine::InternetGetConnectedState(std::uint32_t& flags, std::uint32_t reserved) {
    asked_ += "InternetGetConnectedState " + std::to_string(flags) + " " +
              std::to_string(reserved) + "\n";
    record_.Quietly("InternetGetConnectedState");
    flags = flags_;
    return connected_;
}

void SimulatedMachine::SetMemory(std::int64_t available, std::int64_t total) {
    memory_.dwLength = sizeof(MEMORYSTATUS);
    memory_.dwAvailPhys = available;
    memory_.dwTotalPhys = total;
}

void SimulatedMachine::SetConnection(bool connected, std::uint32_t flags) {
    connected_ = connected;
    flags_ = flags;
}

std::string SimulatedMachine::Asked() {
    return std::exchange(asked_, {});
}

}  // namespace corvane::simulated
