// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_machine.h"

#include <algorithm>
#include <utility>

#include "simulated/simulated_tokens.h"

namespace corvane::simulated {
namespace {

using namespace std::chrono_literals;

constexpr auto kDialling = 20s;

/// Letters of drives are the same in any case.
std::string InCapitals(std::string root) {
    if (!root.empty() && root[0] >= 'a' && root[0] <= 'z')
        root[0] = static_cast<char>(root[0] - 'a' + 'A');
    return root;
}

}  // namespace

SimulatedMachine::SimulatedMachine(CallRecord& record, VirtualQueue& queue)
    : record_(record), queue_(queue) {
    for (const char* root : {"/:\\", "C:\\"})
        PutDrive(root, {.available = 30, .total = 100, .free = 37});
    SetMemory(std::int64_t{4} << 30, std::int64_t{8} << 30);
}

bool SimulatedMachine::GetDiskFreeSpaceExA(const std::string& root, ByteCount& availableToCaller,
                                           ByteCount& totalBytes, ByteCount& totalFreeBytes) {
    asked_ += "GetDiskFreeSpaceExA " + root + "\n";
    const auto drive = drives_.find(InCapitals(root));
    if (drive == drives_.end() || !drive->second) return false;
    availableToCaller = drive->second->available;
    totalBytes = drive->second->total;
    totalFreeBytes = drive->second->free;
    return true;
}

void SimulatedMachine::GlobalMemoryStatus(MEMORYSTATUS& status) {
    asked_ += "GlobalMemoryStatus\n";
    record_.Quietly("GlobalMemoryStatus");
    status = memory_;
}

HANDLE SimulatedMachine::GetCurrentProcess() {
    record_.Call("GetCurrentProcess");
    return SimulatedTokens::kCurrentProcess;
}

bool SimulatedMachine::InternetGetConnectedState(std::uint32_t& flags, std::uint32_t reserved) {
    asked_ += "InternetGetConnectedState " + std::to_string(flags) + " " +
              std::to_string(reserved) + "\n";
    record_.Quietly("InternetGetConnectedState");
    flags = flags_;
    return connected_;
}

bool SimulatedMachine::InternetAutodial(std::uint32_t flags, HWND parent) {
    record_.Call("InternetAutodial", std::to_string(flags) + " " + std::to_string(parent));
    if (connected_) return true;
    queue_.Block(kDialling);
    if (line_answers_) SetConnection(true, INTERNET_CONNECTION_MODEM);
    return connected_;
}

bool SimulatedMachine::InternetAutodialHangup(std::uint32_t reserved) {
    record_.Call("InternetAutodialHangup", std::to_string(reserved));
    if (!connected_ || (flags_ & INTERNET_CONNECTION_MODEM) == 0) return false;
    SetConnection(false, 0);
    return true;
}

void SimulatedMachine::PutDrive(const std::string& root, Drive drive) {
    PutEmptyDrive(root);
    drives_[InCapitals(root)] = drive;
}

void SimulatedMachine::PutEmptyDrive(const std::string& root) {
    const std::string capital = InCapitals(root);
    drives_[capital].reset();
    if (capital[0] < 'A' || capital[0] > 'Z') return;
    if (!std::ranges::binary_search(letters_, capital[0])) letters_.push_back(capital[0]);
    std::ranges::sort(letters_);
}

void SimulatedMachine::TakeDrive(const std::string& root) {
    drives_.erase(InCapitals(root));
    std::erase(letters_, InCapitals(root)[0]);
}

std::vector<DriveObject> SimulatedMachine::Drives() const {
    std::vector<DriveObject> drives;
    for (const char letter : letters_) drives.push_back({.driveletter = std::string(1, letter)});
    return drives;
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
