// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/automation.h"

namespace corvane::linux_desktop {

/// Files by the kernel's own calls, so that each failure keeps its reason. Paths are bytes.
class FileSystem final : public IFileSystemObject {
public:
    [[nodiscard]] std::unique_ptr<ITextStream> OpenTextFile(const std::string& path, IOMode mode,
                                                            bool create) override;
    [[nodiscard]] std::unique_ptr<ITextStream> CreateTextFile(const std::string& path,
                                                              bool overwrite) override;
    [[nodiscard]] std::int64_t FileLen(const std::string& path) override;
    void DeleteFile(const std::string& path) override;
    [[nodiscard]] std::vector<DriveObject> Drives() override;
};

}  // namespace corvane::linux_desktop
