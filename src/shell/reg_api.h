// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/advapi32.h"
#include "platform/language_runtime.h"

namespace corvane {

/// The system's only door to the registry.
///
/// Reader and writer differ on purpose: the reader drops the last character as a terminator, the
/// writer stores none. So what was written here reads back one character short.
class RegAPI {
public:
    RegAPI(IAdvapi32& advapi32, ILanguageRuntime& runtime);

    /// The value's data as text; empty when the key or the value is missing, or of a type that is
    /// neither text nor number. A text of no bytes at all has no terminator to drop: the person is
    /// told of the error, and the statement that failed runs again.
    [[nodiscard]] std::string ReadRegistryValue(HKEY hKey, const std::string& subKey,
                                                const std::string& valueName);

    /// Stores text under HKEY_LOCAL_MACHINE. Where that is not allowed nothing happens.
    void WriteRegistryString(const std::string& subKey, const std::string& valueName,
                             const std::string& value);

private:
    [[nodiscard]] std::string ReadText(HKEY key, const std::string& valueName, std::uint32_t size);
    [[nodiscard]] std::string ReadNumber(HKEY key, const std::string& valueName);

    IAdvapi32& advapi32_;
    ILanguageRuntime& runtime_;
};

}  // namespace corvane
