// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/error.h"

namespace corvane::linux_desktop {

/// The failure that a system call's `error_number` (errno) means for the file at `path`.
[[nodiscard]] RuntimeError FileError(int error_number, const std::string& path);

}  // namespace corvane::linux_desktop
