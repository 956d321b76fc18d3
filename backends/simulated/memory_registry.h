// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/advapi32.h"
#include "simulated/call_record.h"

namespace corvane::simulated {

/// A registry in memory. Operations that can be told to fail give the error's number as their
/// result.
class MemoryRegistry final : public IAdvapi32 {
public:
    struct Value {
        std::uint32_t type = REG_NONE;
        std::string bytes;
    };

    explicit MemoryRegistry(CallRecord& record);

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

    /// What an installation or a person puts there. Keys are named without a separator at the end.
    void Put(const std::string& subKey, const std::string& name, Value value);
    [[nodiscard]] std::optional<Value> Get(const std::string& subKey,
                                           const std::string& name) const;
    /// Keys that were opened and not closed.
    [[nodiscard]] std::size_t OpenKeys() const { return open_.size(); }

private:
    [[nodiscard]] std::int32_t Result(const std::string& operation, const std::string& arguments);
    HKEY Open(const std::string& subKey);

    CallRecord& record_;
    std::map<std::string, std::map<std::string, Value>> keys_;
    std::map<HKEY, std::string> open_;
    HKEY next_ = 1;
};

}  // namespace corvane::simulated
