// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as the file of settings: refused as a whole, or settings that are written and read
// again as they are.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "linux/settings/settings_file.h"
#include "require.h"

using namespace corvane::linux_desktop;
using corvane::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto settings = ReadSettings({reinterpret_cast<const char*>(data), size});
    if (!settings) return 0;
    const std::string text = WriteSettings(*settings);
    const auto again = ReadSettings(text);
    Require(again == settings, "settings are read as they were written");
    Require(WriteSettings(*again) == text, "and written as they were read");
    return 0;
}
