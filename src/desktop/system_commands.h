// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "platform/automation.h"
#include "platform/kernel32.h"
#include "runtime/currency.h"
#include "runtime/failure.h"
#include "runtime/message_loop.h"

namespace corvane {

/// What is asked of the machine: the space on its drives and the size of its memory.
class SystemCommands {
public:
    /// How the answers are said.
    struct Answers {
        std::function<void(const std::string& drive, Long percent)> SayFreeSpace;
        std::function<void(Long megabytes)> SayMemory;
    };

    SystemCommands(IKernel32& kernel32, IFileSystemObject& files, MessageLoop& loop,
                   Answers answers);

    /// The free share of a drive in percent, a whole number; `drive` is its letter. Yields once. A
    /// drive that is missing or not ready raises kOverflow, since nothing is divided by nothing.
    [[nodiscard]] Currency DiskFreePercent(const std::string& drive);

    /// Says the free share of the drive that the last letter of the phrase names, the letter as the
    /// phrase has it. A drive that is not ready has 0 percent; one that does not exist is silent.
    void SayFreeSpace(const std::string& PhraseText, const ResumeNext& step);

    /// Says how much memory is installed, in megabytes of 1024 times 1024 bytes, to the nearest
    /// one, half of one to the even number.
    void SayMemory();

private:
    IKernel32& kernel32_;
    IFileSystemObject& files_;
    MessageLoop& loop_;
    Answers answers_;
};

}  // namespace corvane
