// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

/// The store of settings, by its own operations' names. Each operation returns ERROR_SUCCESS or the
/// code of what went wrong, and raises nothing. Data is bytes, kept as they were given.
namespace corvane {

using HKEY = std::uint32_t;

inline constexpr HKEY HKEY_LOCAL_MACHINE = 0x80000002;

enum RegistryResult : std::int32_t {
    ERROR_SUCCESS = 0,
    ERROR_FILE_NOT_FOUND = 2,
    ERROR_ACCESS_DENIED = 5,
    ERROR_INVALID_HANDLE = 6,
    ERROR_MORE_DATA = 234,
};

enum RegistryType : std::uint32_t { REG_NONE = 0, REG_SZ = 1, REG_DWORD = 4 };

enum RegistryAccess : std::uint32_t { KEY_QUERY_VALUE = 1, KEY_WRITE = 0x20006 };

enum RegistryOptions : std::uint32_t { REG_OPTION_NON_VOLATILE = 0 };

struct SECURITY_ATTRIBUTES {
    std::int32_t nLength = 12;
    std::int32_t lpSecurityDescriptor = 0;
    std::int32_t bInheritHandle = 1;
};

class IAdvapi32 {
public:
    virtual ~IAdvapi32() = default;

    /// Opens an existing key; a separator at the end of `subKey` means nothing.
    virtual std::int32_t RegOpenKeyExA(HKEY root, const std::string& subKey, std::uint32_t options,
                                       std::uint32_t access, HKEY& key) = 0;

    /// Type and size in bytes of a value, and, where `data` is not null, its bytes: `size` is then
    /// the room there is, and too little of it gives ERROR_MORE_DATA. A missing value leaves `type`
    /// as it is.
    virtual std::int32_t RegQueryValueExA(HKEY key, const std::string& name, std::uint32_t& type,
                                          char* data, std::uint32_t& size) = 0;

    /// Opens a key for writing, and makes it with all its parents if it is missing.
    virtual std::int32_t RegCreateKeyExA(HKEY root, const std::string& subKey,
                                         const std::string& keyClass, std::uint32_t options,
                                         std::uint32_t access,
                                         const SECURITY_ATTRIBUTES& attributes, HKEY& key,
                                         std::uint32_t& disposition) = 0;

    /// Stores the first `size` bytes of `data`.
    virtual std::int32_t RegSetValueExA(HKEY key, const std::string& name, std::uint32_t type,
                                        const char* data, std::uint32_t size) = 0;

    virtual std::int32_t RegCloseKey(HKEY key) = 0;
};

}  // namespace corvane
