// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/system_commands.h"

#include <bit>
#include <utility>
#include <vector>

#include "runtime/text.h"

namespace corvane {

SystemCommands::SystemCommands(IKernel32& kernel32, IFileSystemObject& files, MessageLoop& loop,
                               Answers answers)
    : kernel32_(kernel32), files_(files), loop_(loop), answers_(std::move(answers)) {}

Currency SystemCommands::DiskFreePercent(const std::string& drive) {
    ByteCount available = 0;
    ByteCount total_bytes = 0;
    ByteCount free_bytes = 0;
    // Whether it succeeded is not looked at: a drive that can't be asked leaves 0 of 0.
    kernel32_.GetDiskFreeSpaceExA(drive + ":\\", available, total_bytes, free_bytes);
    // The counts are taken for decimals with four places as they stand; the factor cancels.
    const Currency free = Currency::OfUnits(std::bit_cast<std::int64_t>(free_bytes));
    const Currency total = Currency::OfUnits(std::bit_cast<std::int64_t>(total_bytes));
    const double share = Finite(Divide(free.ToDouble(), total.ToDouble()) * 100);
    const Integer percent = Round(share).rep();
    loop_.DoEvents();
    return {percent};
}

void SystemCommands::SayFreeSpace(const std::string& PhraseText, const ResumeNext& step) {
    std::string letter;
    Long percent;  // of a drive that can't be asked it stays 0
    std::vector<DriveObject> drives;
    step([&] { letter = UCase(LastCharacter(PhraseText)); });
    step([&] { percent = CLng(DiskFreePercent(letter)); });
    step([&] { drives = files_.Drives(); });
    // No drive of that letter, no word. The loop goes on behind a match.
    for (const DriveObject& drive : drives) {
        if (drive.driveletter != letter) continue;
        step([&] { loop_.DoEvents(); });
        step([&] { answers_.SayFreeSpace(LastCharacter(PhraseText), percent); });
    }
}

void SystemCommands::SayMemory() {
    constexpr double kMegabyte = 1024 * 1024;
    MEMORYSTATUS memory;
    kernel32_.GlobalMemoryStatus(memory);
    answers_.SayMemory(Round(static_cast<double>(memory.dwTotalPhys) / kMegabyte));
}

}  // namespace corvane
