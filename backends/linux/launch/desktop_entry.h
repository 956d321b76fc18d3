// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::linux_desktop {

/// What a desktop entry starts.
struct DesktopEntry {
    std::vector<std::string> command;  ///< program and arguments; field codes are dropped
    bool terminal = false;             ///< it runs inside a terminal window
    std::string name;                  ///< as people know it; may be empty
    bool no_display = false;           ///< menus do not show it
};

/// Reads the content of a desktop entry file by the rules of the freedesktop desktop entry format.
/// Nothing comes of an entry that is hidden, is no application or has no command.
/// `locale`, as in "de_DE", chooses the language of the name.
[[nodiscard]] std::optional<DesktopEntry> ReadDesktopEntry(std::string_view content,
                                                           std::string_view locale = {});

}  // namespace corvane::linux_desktop
