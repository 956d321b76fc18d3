// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace corvane::linux_desktop {

/// The folder in which the executable lies for whoever started it: where it was started by a
/// symbolic link, the link's folder and not that of the file behind it, so that many people can run
/// one file, each from a folder of their own. A real path. To be asked before the process changes
/// its working folder. Raises kPathNotFound.
[[nodiscard]] std::string ExecutableFolderOfThisProcess();

/// The same for any process. `started_as`: the name the kernel was given, which counts only while
/// it leads to `self`; it does not for a program that was started by handle or by a loader.
[[nodiscard]] std::filesystem::path ExecutableFolder(const std::filesystem::path& started_as,
                                                     const std::filesystem::path& self);

}  // namespace corvane::linux_desktop
