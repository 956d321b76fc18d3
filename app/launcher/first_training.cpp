// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "app/launcher/first_training.h"

#include <cstdint>

namespace corvane {

void AskForFirstTraining(IAdvapi32& registry) {
    const char* const value = "checktraining";
    HKEY key = 0;
    std::uint32_t disposition = 0;
    if (registry.RegCreateKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Brindel\\ktcv\\", "",
                                 REG_OPTION_NON_VOLATILE, KEY_WRITE, {}, key,
                                 disposition) != ERROR_SUCCESS)
        return;
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (registry.RegQueryValueExA(key, value, type, nullptr, size) == ERROR_FILE_NOT_FOUND) {
        // With its terminator: the reader takes one character off.
        constexpr char kYes[] = "1";
        registry.RegSetValueExA(key, value, REG_SZ, kYes, sizeof kYes);
    }
    registry.RegCloseKey(key);
}

}  // namespace corvane
