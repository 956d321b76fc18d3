// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/memory_registry.h"

#include <algorithm>

#include "platform/error.h"

namespace corvane::simulated {
namespace {

std::string Trimmed(std::string subKey) {
    if (subKey.ends_with('\\')) subKey.pop_back();
    return subKey;
}

}  // namespace

MemoryRegistry::MemoryRegistry(CallRecord& record) : record_(record) {}

std::int32_t MemoryRegistry::Result(const std::string& operation, const std::string& arguments) {
    try {
        record_.Call(operation, arguments);
    } catch (const RuntimeError& told_to_fail) {
        return told_to_fail.number();
    }
    return ERROR_SUCCESS;
}

HKEY MemoryRegistry::Open(const std::string& subKey) {
    open_[next_] = Trimmed(subKey);
    return next_++;
}

std::int32_t MemoryRegistry::RegOpenKeyExA(HKEY /*root*/, const std::string& subKey,
                                           std::uint32_t /*options*/, std::uint32_t access,
                                           HKEY& key) {
    if (const auto result = Result("RegOpenKeyExA", subKey + " " + std::to_string(access));
        result != ERROR_SUCCESS)
        return result;
    if (!keys_.contains(Trimmed(subKey))) return ERROR_FILE_NOT_FOUND;
    key = Open(subKey);
    return ERROR_SUCCESS;
}

std::int32_t MemoryRegistry::RegQueryValueExA(HKEY key, const std::string& name,
                                              std::uint32_t& type, char* data,
                                              std::uint32_t& size) {
    if (const auto result = Result("RegQueryValueExA", name); result != ERROR_SUCCESS)
        return result;
    if (!open_.contains(key)) return ERROR_INVALID_HANDLE;
    const auto& values = keys_[open_[key]];
    const auto value = values.find(name);
    if (value == values.end()) return ERROR_FILE_NOT_FOUND;
    const std::uint32_t room = size;
    type = value->second.type;
    size = static_cast<std::uint32_t>(value->second.bytes.size());
    if (data == nullptr) return ERROR_SUCCESS;
    if (room < size) return ERROR_MORE_DATA;
    std::ranges::copy(value->second.bytes, data);
    return ERROR_SUCCESS;
}

std::int32_t MemoryRegistry::RegCreateKeyExA(HKEY /*root*/, const std::string& subKey,
                                             const std::string& /*keyClass*/,
                                             std::uint32_t /*options*/, std::uint32_t access,
                                             const SECURITY_ATTRIBUTES& /*attributes*/, HKEY& key,
                                             std::uint32_t& disposition) {
    if (const auto result = Result("RegCreateKeyExA", subKey + " " + std::to_string(access));
        result != ERROR_SUCCESS)
        return result;
    disposition = keys_.contains(Trimmed(subKey)) ? 2 : 1;
    keys_[Trimmed(subKey)];
    key = Open(subKey);
    return ERROR_SUCCESS;
}

std::int32_t MemoryRegistry::RegSetValueExA(HKEY key, const std::string& name, std::uint32_t type,
                                            const char* data, std::uint32_t size) {
    const std::string bytes(data, size);
    if (const auto result = Result("RegSetValueExA", name + " " + bytes); result != ERROR_SUCCESS)
        return result;
    if (!open_.contains(key)) return ERROR_INVALID_HANDLE;
    keys_[open_[key]][name] = {type, bytes};
    return ERROR_SUCCESS;
}

std::int32_t MemoryRegistry::RegCloseKey(HKEY key) {
    record_.Call("RegCloseKey");
    return open_.erase(key) == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

void MemoryRegistry::Put(const std::string& subKey, const std::string& name, Value value) {
    keys_[subKey][name] = std::move(value);
}

std::optional<MemoryRegistry::Value> MemoryRegistry::Get(const std::string& subKey,
                                                         const std::string& name) const {
    const auto key = keys_.find(subKey);
    if (key == keys_.end()) return std::nullopt;
    const auto value = key->second.find(name);
    return value == key->second.end() ? std::nullopt : std::optional(value->second);
}

}  // namespace corvane::simulated
