// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace corvane::linux_desktop {

/// Folders in which programs are looked for, in order.
struct SearchPlaces {
    std::vector<std::filesystem::path> programs;      ///< those of PATH
    std::vector<std::filesystem::path> applications;  ///< folders of desktop entries

    /// The places that the environment names.
    [[nodiscard]] static SearchPlaces OfEnvironment();
};

/// What is to be run: a full path and its arguments, in order.
using Invocation = std::vector<std::string>;

/// How to run the command line `line`. A program is named as in this system, where ".exe" may stand
/// behind its name: what exists under the given path is taken first, then under the path without
/// ".exe", each also in other capitals; a name without "/" is looked for on PATH, then as the id of
/// a desktop entry, and the path of a desktop entry stands for its program. A program for Windows
/// is run by wine. Nothing when none of it can be run.
[[nodiscard]] std::optional<Invocation> FindInvocation(const std::string& line,
                                                       const SearchPlaces& places);

}  // namespace corvane::linux_desktop
