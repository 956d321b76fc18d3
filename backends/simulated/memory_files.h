// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/automation.h"
#include "simulated/call_record.h"
#include "simulated/simulated_machine.h"

namespace corvane::simulated {

/// Files in memory. A write is in the file at once, so that what a failure leaves behind can be
/// seen. Every path's folder exists. Operations that can be told to fail: all of them.
class MemoryFiles final : public IFileSystemObject {
public:
    /// `machine` has the drives.
    MemoryFiles(CallRecord& record, const SimulatedMachine& machine);

    std::unique_ptr<ITextStream> OpenTextFile(const std::string& path, IOMode mode,
                                              bool create) override;
    std::unique_ptr<ITextStream> CreateTextFile(const std::string& path, bool overwrite) override;
    std::int64_t FileLen(const std::string& path) override;
    void DeleteFile(const std::string& path) override;
    std::vector<DriveObject> Drives() override;

    /// The bytes of a file; nothing when there is none.
    [[nodiscard]] std::optional<std::string> Bytes(const std::string& path) const;
    void Put(const std::string& path, std::string bytes);
    void Remove(const std::string& path);

private:
    CallRecord& record_;
    const SimulatedMachine& machine_;
    std::map<std::string, std::shared_ptr<std::string>> files_;
};

}  // namespace corvane::simulated
