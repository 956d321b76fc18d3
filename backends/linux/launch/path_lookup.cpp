// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/path_lookup.h"

#include <algorithm>
#include <system_error>
#include <vector>

namespace corvane::linux_desktop {
namespace {

namespace fs = std::filesystem;

char Small(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool Alike(const std::string& a, const std::string& b) {
    return std::ranges::equal(a, b, {}, Small, Small);
}

std::optional<fs::path> FindNameIn(const fs::path& folder, const std::string& name) {
    std::error_code ignored;
    if (fs::exists(folder / name, ignored)) return folder / name;
    std::vector<fs::path> found;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, ignored), end;
         !ignored && entry != end; entry.increment(ignored))
        if (Alike(entry->path().filename().string(), name)) found.push_back(entry->path());
    // A folder tells its names in no order; the answer shall be the same each time.
    const auto first = std::ranges::min_element(found);
    return first == found.end() ? std::nullopt : std::optional(*first);
}

}  // namespace

std::optional<fs::path> FindIgnoringCase(const fs::path& path) {
    std::error_code ignored;
    if (fs::exists(path, ignored)) return path;
    fs::path found = path.root_path();
    for (const fs::path& name : path.relative_path()) {
        const auto next = FindNameIn(found, name.string());
        if (!next) return std::nullopt;
        found = *next;
    }
    return found;
}

bool EndsIgnoringCase(const std::string& text, const std::string& ending) {
    return text.size() >= ending.size() && Alike(text.substr(text.size() - ending.size()), ending);
}

}  // namespace corvane::linux_desktop
