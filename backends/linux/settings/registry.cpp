// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/settings/registry.h"

#include <QStandardPaths>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "linux/settings/settings_file.h"

namespace corvane::linux_desktop {
namespace {

constexpr char kSeparator = '\\';

enum Disposition : std::uint32_t { kCreatedNewKey = 1, kOpenedExistingKey = 2 };

std::string Trimmed(std::string name) {
    while (name.ends_with(kSeparator)) name.pop_back();
    return name;
}

/// Makes the key and those that it lies in.
void AddKey(Settings& settings, const std::string& name) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = name.find(kSeparator, end + 1);
        settings[name.substr(0, end)];
    }
}

}  // namespace

Registry::Registry(std::filesystem::path file) : file_(std::move(file)) {}

std::filesystem::path Registry::FileOfPerson() {
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(folder.toStdString()) / "corvane" / "registry";
}

HKEY Registry::Open(std::string name) {
    open_[next_] = std::move(name);
    return next_++;
}

std::int32_t Registry::RegOpenKeyExA(HKEY root, const std::string& subKey,
                                     std::uint32_t /*options*/, std::uint32_t /*access*/,
                                     HKEY& key) {
    if (root != HKEY_LOCAL_MACHINE) return ERROR_FILE_NOT_FOUND;
    const auto settings = LoadSettings(file_);
    if (!settings) return ERROR_ACCESS_DENIED;
    if (!settings->contains(Trimmed(subKey))) return ERROR_FILE_NOT_FOUND;
    key = Open(Trimmed(subKey));
    return ERROR_SUCCESS;
}

std::int32_t Registry::RegQueryValueExA(HKEY key, const std::string& name, std::uint32_t& type,
                                        char* data, std::uint32_t& size) {
    if (!open_.contains(key)) return ERROR_INVALID_HANDLE;
    const auto settings = LoadSettings(file_);
    if (!settings) return ERROR_ACCESS_DENIED;
    const auto values = settings->find(open_[key]);
    if (values == settings->end()) return ERROR_FILE_NOT_FOUND;
    const auto value = values->second.find(name);
    if (value == values->second.end()) return ERROR_FILE_NOT_FOUND;
    const std::string& bytes = value->second.bytes;
    const std::uint32_t room = size;
    type = value->second.type;
    size = static_cast<std::uint32_t>(bytes.size());
    if (data == nullptr) return ERROR_SUCCESS;
    if (room < size) return ERROR_MORE_DATA;
    std::ranges::copy(bytes, data);
    return ERROR_SUCCESS;
}

std::int32_t Registry::RegCreateKeyExA(HKEY root, const std::string& subKey,
                                       const std::string& /*keyClass*/, std::uint32_t /*options*/,
                                       std::uint32_t /*access*/,
                                       const SECURITY_ATTRIBUTES& /*attributes*/, HKEY& key,
                                       std::uint32_t& disposition) {
    if (root != HKEY_LOCAL_MACHINE) return ERROR_FILE_NOT_FOUND;
    auto settings = LoadSettings(file_);
    if (!settings) return ERROR_ACCESS_DENIED;
    const std::string name = Trimmed(subKey);
    const bool exists = settings->contains(name);
    if (!exists) {
        AddKey(*settings, name);
        if (!StoreSettings(file_, *settings)) return ERROR_ACCESS_DENIED;
    }
    disposition = exists ? kOpenedExistingKey : kCreatedNewKey;
    key = Open(name);
    return ERROR_SUCCESS;
}

std::int32_t Registry::RegSetValueExA(HKEY key, const std::string& name, std::uint32_t type,
                                      const char* data, std::uint32_t size) {
    if (!open_.contains(key)) return ERROR_INVALID_HANDLE;
    auto settings = LoadSettings(file_);
    if (!settings) return ERROR_ACCESS_DENIED;
    (*settings)[open_[key]][name] = {type, std::string(data, size)};
    return StoreSettings(file_, *settings) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

std::int32_t Registry::RegCloseKey(HKEY key) {
    return open_.erase(key) == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

}  // namespace corvane::linux_desktop
