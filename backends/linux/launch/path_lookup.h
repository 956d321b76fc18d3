// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace corvane::linux_desktop {

/// The path of what exists at `path`, where names are compared as they stand first and then, name
/// by name, with ASCII letters of either case alike.
[[nodiscard]] std::optional<std::filesystem::path> FindIgnoringCase(
    const std::filesystem::path& path);

/// Whether the ASCII letters of `ending`, given in small letters, end `text` in either case.
[[nodiscard]] bool EndsIgnoringCase(const std::string& text, const std::string& ending);

}  // namespace corvane::linux_desktop
