// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::linux_desktop {

/// Names differ in more than the case of their letters A to Z.
struct CaseBlindLess {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
};

struct SettingValue {
    std::uint32_t type = 0;
    std::string bytes;
    friend bool operator==(const SettingValue&, const SettingValue&) = default;
};

using SettingKey = std::map<std::string, SettingValue, CaseBlindLess>;
using Settings = std::map<std::string, SettingKey, CaseBlindLess>;

/// The settings as text: "[key]" on a line, below it a line `"name" type "bytes"` for each of its
/// values. "%" and two hexadecimal digits are a byte that is not plain ASCII.
[[nodiscard]] std::string WriteSettings(const Settings& settings);

/// The settings in such a text; nothing if any line of it is not understood.
[[nodiscard]] std::optional<Settings> ReadSettings(std::string_view text);

/// No settings where there is no file; nothing if it can't be read.
[[nodiscard]] std::optional<Settings> LoadSettings(const std::filesystem::path& file);

/// Puts the settings in the place of the file's content, in one step, and makes its folder where it
/// is missing. False if that failed; the file is as it was then.
[[nodiscard]] bool StoreSettings(const std::filesystem::path& file, const Settings& settings);

}  // namespace corvane::linux_desktop
