// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/settings/settings_file.h"

#include <QSaveFile>
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <system_error>

namespace corvane::linux_desktop {
namespace {

constexpr std::string_view kHead =
    "# Settings of KT Corvane: [key], then \"name\" type \"bytes\". %00 is a byte.\n";

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string Escaped(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const bool plain = code >= 0x20 && code < 0x7F && byte != '%' && byte != '"';
        if (plain)
            text += byte;
        else
            text += {'%', kDigits[code >> 4U], kDigits[code & 0xFU]};
    }
    return text;
}

template <class Number>
bool ReadNumber(std::string_view digits, int base, Number& number) {
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end;
}

std::optional<std::string> Unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            bytes += text[at];
            continue;
        }
        unsigned char code = 0;
        if (at + 2 >= text.size() || !ReadNumber(text.substr(at + 1, 2), 16, code)) return {};
        bytes += static_cast<char>(code);
        at += 2;
    }
    return bytes;
}

/// Reads `"name" type "bytes"` into the key.
bool ReadValue(std::string_view line, SettingKey& key) {
    const std::size_t name_end = line.find('"', 1);
    if (!line.starts_with('"') || !line.ends_with('"') || name_end == std::string_view::npos)
        return false;
    // The first of them: the bytes may end in a blank.
    const std::size_t bytes_start = line.find(" \"", name_end + 1);
    if (bytes_start == std::string_view::npos || line.size() < bytes_start + 3) return false;
    const auto name = Unescaped(line.substr(1, name_end - 1));
    const auto bytes = Unescaped(line.substr(bytes_start + 2, line.size() - bytes_start - 3));
    std::uint32_t type = 0;
    const std::string_view between = line.substr(name_end + 1, bytes_start - name_end - 1);
    if (!name || !bytes || !between.starts_with(' ') || !ReadNumber(between.substr(1), 10, type))
        return false;
    key[*name] = {type, *bytes};
    return true;
}

}  // namespace

bool CaseBlindLess::operator()(std::string_view a, std::string_view b) const {
    return std::ranges::lexicographical_compare(a, b, {}, Lower, Lower);
}

std::string WriteSettings(const Settings& settings) {
    std::string text(kHead);
    for (const auto& [key, values] : settings) {
        text += "\n[" + Escaped(key) + "]\n";
        for (const auto& [name, value] : values)
            text += '"' + Escaped(name) + "\" " + std::to_string(value.type) + " \"" +
                    Escaped(value.bytes) + "\"\n";
    }
    return text;
}

std::optional<Settings> ReadSettings(std::string_view text) {
    Settings settings;
    SettingKey* key = nullptr;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.empty() || line.starts_with('#')) continue;
        if (line.starts_with('[') && line.ends_with(']')) {
            const auto name = Unescaped(line.substr(1, line.size() - 2));
            if (!name) return {};
            key = &settings[*name];
        } else if (key == nullptr || !ReadValue(line, *key)) {
            return {};
        }
    }
    return settings;
}

std::optional<Settings> LoadSettings(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::status(file, error).type() == std::filesystem::file_type::not_found)
        return Settings();
    std::ifstream stream(file, std::ios::binary);
    if (error || !std::filesystem::is_regular_file(file, error) || !stream) return {};
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return stream.bad() ? std::nullopt : ReadSettings(text);
}

bool StoreSettings(const std::filesystem::path& file, const Settings& settings) {
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (error) return false;
    const std::string text = WriteSettings(settings);
    QSaveFile stored(QString::fromStdString(file.string()));
    // Committing passes over what a full disk has refused of its buffer; emptying that tells.
    return stored.open(QIODevice::WriteOnly) &&
           stored.write(text.data(), static_cast<qint64>(text.size())) ==
               static_cast<qint64>(text.size()) &&
           stored.flush() && stored.commit();
}

}  // namespace corvane::linux_desktop
