// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/kernel32.h"

/// The store of settings and the privileges of processes, by their own operations' names. Nothing
/// here raises.
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

/// The store of settings. Each operation returns ERROR_SUCCESS or the code of what went wrong. Data
/// is bytes, kept as they were given.
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

enum TokenAccess : std::uint32_t { TOKEN_QUERY = 8, TOKEN_ADJUST_PRIVILEGES = 32 };

enum PrivilegeAttributes : std::uint32_t { SE_PRIVILEGE_ENABLED = 2 };

/// Identifier of a privilege: 64 bits in two words.
struct LUID {
    std::uint32_t LowPart = 0;
    std::int32_t HighPart = 0;
    friend bool operator==(const LUID&, const LUID&) = default;
};
static_assert(sizeof(LUID) == 8);

/// Privileges of a token, with room for one of them.
struct TOKEN_PRIVILEGES {
    std::uint32_t PrivilegeCount = 0;
    LUID Luid;
    std::uint32_t Attributes = 0;
};
static_assert(offsetof(TOKEN_PRIVILEGES, PrivilegeCount) == 0);
static_assert(offsetof(TOKEN_PRIVILEGES, Luid) == 4);
static_assert(offsetof(TOKEN_PRIVILEGES, Attributes) == 12);
static_assert(sizeof(TOKEN_PRIVILEGES) == 16);

/// What processes may do. Where the machine asks nobody's leave in this way all of it succeeds, and
/// IUser32::ExitWindowsEx decides by itself.
class IProcessTokens {
public:
    virtual ~IProcessTokens() = default;

    /// The token of a process, for the accesses of TokenAccess in `access`. On failure returns
    /// false and leaves `token` as it is. There is no closing: it lives as long as the process.
    virtual bool OpenProcessToken(HANDLE process, std::uint32_t access, HANDLE& token) = 0;

    /// The identifier of a privilege by its name; an empty `system` is this machine. On failure
    /// returns false and leaves `luid` as it is.
    virtual bool LookupPrivilegeValueA(const std::string& system, const std::string& name,
                                       LUID& luid) = 0;

    /// Switches the privileges of `newState` on or off as their Attributes say, or with any
    /// `disableAll` but 0 all of them off. `previousState`, for which there are `bufferLength`
    /// bytes, receives what those that were changed were before, `returnLength` its size in bytes.
    /// False for a token that is none; a privilege that the process does not hold is passed over,
    /// and that is no failure.
    virtual bool AdjustTokenPrivileges(HANDLE token, std::int32_t disableAll,
                                       const TOKEN_PRIVILEGES& newState, std::uint32_t bufferLength,
                                       TOKEN_PRIVILEGES& previousState,
                                       std::uint32_t& returnLength) = 0;
};

}  // namespace corvane
