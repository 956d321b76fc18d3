// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/path_lookup.h"

#include <algorithm>
#include <climits>
#include <iterator>
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

/// What a folder has under that name in any capitals: the exact spelling first, then in order,
/// since a folder tells its names in none.
std::vector<fs::path> Spellings(const fs::path& folder, const std::string& name) {
    std::error_code ignored;
    std::vector<fs::path> found;
    if (name.size() > NAME_MAX) return found;
    for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end;
         entry.increment(ignored))
        if (Alike(entry->path().filename().string(), name)) found.push_back(entry->path());
    std::ranges::sort(found);
    std::ranges::stable_partition(found,
                                  [&](const fs::path& path) { return path.filename() == name; });
    return found;
}

/// The part of a path from `name` to `end`, below `folder`. Of two folders that differ in capitals
/// alone only one may lead on.
std::optional<fs::path> FindBelow(const fs::path& folder, fs::path::iterator name,
                                  fs::path::iterator end) {
    if (name == end) return folder;
    const auto rest = std::next(name);
    for (const fs::path& next : Spellings(folder, name->string()))
        if (auto found = FindBelow(next, rest, end)) return found;
    return std::nullopt;
}

}  // namespace

std::optional<fs::path> FindIgnoringCase(const fs::path& path) {
    std::error_code ignored;
    if (fs::exists(path, ignored)) return path;
    const fs::path relative = path.relative_path();
    return FindBelow(path.has_root_path() ? path.root_path() : fs::path("."), relative.begin(),
                     relative.end());
}

bool EndsIgnoringCase(const std::string& text, const std::string& ending) {
    return text.size() >= ending.size() && Alike(text.substr(text.size() - ending.size()), ending);
}

}  // namespace corvane::linux_desktop
