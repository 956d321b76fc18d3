// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/desktop_entry.h"

#include <cstddef>
#include <map>

namespace corvane::linux_desktop {
namespace {

using Keys = std::map<std::string, std::string, std::less<>>;

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

Keys KeysOfMainGroup(std::string_view content) {
    Keys keys;
    bool in_group = false;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        const std::string_view line = Trimmed(content.substr(0, end));
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
        if (line.starts_with('[')) in_group = line == "[Desktop Entry]";
        const std::size_t sign = line.find('=');
        if (in_group && !line.starts_with('#') && sign != std::string_view::npos)
            keys.emplace(Trimmed(line.substr(0, sign)), Trimmed(line.substr(sign + 1)));
    }
    return keys;
}

std::string ValueOf(const Keys& keys, std::string_view key) {
    const auto found = keys.find(key);
    return found == keys.end() ? std::string() : found->second;
}

/// The name in the language of the locale, or of its country, or else the plain one.
std::string NameOf(const Keys& keys, std::string_view locale) {
    const std::string_view language = locale.substr(0, locale.find('_'));
    for (const std::string_view choice : {locale, language}) {
        const std::string key = "Name[" + std::string(choice) + "]";
        if (!choice.empty() && keys.contains(key)) return ValueOf(keys, key);
    }
    return ValueOf(keys, "Name");
}

/// A string value, in which a backslash stands in front of a letter for a control character.
std::string Unescaped(std::string_view value) {
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] != '\\' || at + 1 == value.size()) {
            text += value[at];
            continue;
        }
        switch (value[++at]) {
            case 's':
                text += ' ';
                break;
            case 'n':
                text += '\n';
                break;
            case 't':
                text += '\t';
                break;
            case 'r':
                text += '\r';
                break;
            default:
                text += value[at];
        }
    }
    return text;
}

/// Arguments parted by blanks; inside of double quotes a backslash takes the next character as it
/// stands. "%%" is a percent sign; any other field code stands for files that there are none of.
std::vector<std::string> CommandOf(std::string_view exec) {
    std::vector<std::string> command;
    std::string argument;
    bool quoted = false;
    bool kept = false;  // an empty argument counts only if it was written as one
    const auto finish = [&] {
        if (kept || !argument.empty()) command.push_back(argument);
        argument.clear();
        kept = false;
    };
    for (std::size_t at = 0; at < exec.size(); ++at) {
        const char character = exec[at];
        const bool more = at + 1 < exec.size();
        if (character == '"') {
            quoted = !quoted;
            kept = true;
        } else if (quoted && character == '\\' && more) {
            argument += exec[++at];
        } else if (character == '%' && more) {
            if (exec[++at] == '%') argument += '%';
        } else if (!quoted && (character == ' ' || character == '\t')) {
            finish();
        } else {
            argument += character;
        }
    }
    finish();
    return command;
}

}  // namespace

std::optional<DesktopEntry> ReadDesktopEntry(std::string_view content, std::string_view locale) {
    const Keys keys = KeysOfMainGroup(content);
    if (ValueOf(keys, "Type") != "Application" || ValueOf(keys, "Hidden") == "true")
        return std::nullopt;
    DesktopEntry entry{CommandOf(Unescaped(ValueOf(keys, "Exec"))),
                       ValueOf(keys, "Terminal") == "true", Unescaped(NameOf(keys, locale)),
                       ValueOf(keys, "NoDisplay") == "true"};
    if (entry.command.empty()) return std::nullopt;
    return entry;
}

}  // namespace corvane::linux_desktop
