// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "platform/advapi32.h"

namespace corvane::linux_desktop {

/// The person's own registry, a file of text. It holds HKEY_LOCAL_MACHINE; there are no other
/// roots. Names of keys and values compare without regard to case. The file is read anew for each
/// operation, so that what a person or another program puts there counts at once.
class Registry final : public IAdvapi32 {
public:
    explicit Registry(std::filesystem::path file);

    /// The file in the person's configuration folder.
    [[nodiscard]] static std::filesystem::path FileOfPerson();

    std::int32_t RegOpenKeyExA(HKEY root, const std::string& subKey, std::uint32_t options,
                               std::uint32_t access, HKEY& key) override;
    std::int32_t RegQueryValueExA(HKEY key, const std::string& name, std::uint32_t& type,
                                  char* data, std::uint32_t& size) override;
    std::int32_t RegCreateKeyExA(HKEY root, const std::string& subKey, const std::string& keyClass,
                                 std::uint32_t options, std::uint32_t access,
                                 const SECURITY_ATTRIBUTES& attributes, HKEY& key,
                                 std::uint32_t& disposition) override;
    std::int32_t RegSetValueExA(HKEY key, const std::string& name, std::uint32_t type,
                                const char* data, std::uint32_t size) override;
    std::int32_t RegCloseKey(HKEY key) override;

private:
    HKEY Open(std::string name);

    std::filesystem::path file_;
    std::map<HKEY, std::string> open_;
    HKEY next_ = 1;
};

}  // namespace corvane::linux_desktop
