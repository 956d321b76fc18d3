// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "arguments.h"

namespace corvane::tools {

/// Lets an engine hear a sound file and prints its events. Raises RuntimeError when the file or a
/// grammar can't be used.
void Hear(const std::string& file, const Arguments& arguments);

}  // namespace corvane::tools
