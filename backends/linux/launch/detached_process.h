// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace corvane::linux_desktop {

/// Runs a program that has nothing to do with us from then on: in a session of its own, in `folder`
/// if it can be entered, with nothing to read or write and none of our open files. `invocation` is
/// the program's full path and its arguments. Returns whether the program runs.
[[nodiscard]] bool StartDetached(const std::vector<std::string>& invocation,
                                 const std::string& folder);

}  // namespace corvane::linux_desktop
