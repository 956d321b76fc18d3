// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/reg_api.h"

#include <cstring>

#include "runtime/failure.h"
#include "runtime/numbers.h"
#include "runtime/text.h"

namespace corvane {

RegAPI::RegAPI(IAdvapi32& advapi32, ILanguageRuntime& runtime)
    : advapi32_(advapi32), runtime_(runtime) {}

std::string RegAPI::ReadRegistryValue(HKEY hKey, const std::string& subKey,
                                      const std::string& valueName) {
    HKEY key = 0;
    if (advapi32_.RegOpenKeyExA(hKey, subKey, 0, KEY_QUERY_VALUE, key) != ERROR_SUCCESS) return {};

    // The result is not looked at: for a missing value the type stays what it was.
    std::uint32_t type = REG_NONE;
    std::uint32_t size = 0;
    advapi32_.RegQueryValueExA(key, valueName, type, nullptr, size);

    std::string result;
    if (type == REG_SZ) result = ReadText(key, valueName, size);
    if (type == REG_DWORD) result = ReadNumber(key, valueName);
    advapi32_.RegCloseKey(key);
    return result;
}

std::string RegAPI::ReadText(HKEY key, const std::string& valueName, std::uint32_t size) {
    std::string buffer(size, '\0');
    std::uint32_t type = REG_NONE;
    std::uint32_t room = size;
    advapi32_.RegQueryValueExA(key, valueName, type, buffer.data(), room);
    std::string text;
    retry([&] { text = Left(buffer, Long(size) - 1); },
          [&](const RuntimeError& error) { runtime_.MsgBox(error.what(), kOkOnly, ""); });
    return text;
}

std::string RegAPI::ReadNumber(HKEY key, const std::string& valueName) {
    std::int32_t number = 0;
    std::uint32_t type = REG_NONE;
    std::uint32_t room = sizeof number;
    char bytes[sizeof number] = {};
    if (advapi32_.RegQueryValueExA(key, valueName, type, bytes, room) != ERROR_SUCCESS) return {};
    std::memcpy(&number, bytes, sizeof number);
    return CStr(Long(number));
}

void RegAPI::WriteRegistryString(const std::string& subKey, const std::string& valueName,
                                 const std::string& value) {
    HKEY key = 0;
    std::uint32_t disposition = 0;
    if (advapi32_.RegCreateKeyExA(HKEY_LOCAL_MACHINE, subKey, "", REG_OPTION_NON_VOLATILE,
                                  KEY_WRITE, SECURITY_ATTRIBUTES(), key,
                                  disposition) != ERROR_SUCCESS)
        return;
    // The length without a terminator, deliberately.
    advapi32_.RegSetValueExA(key, valueName, REG_SZ, value.data(),
                             static_cast<std::uint32_t>(value.size()));
    advapi32_.RegCloseKey(key);
}

}  // namespace corvane
