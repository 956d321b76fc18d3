// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/launch/installed_applications.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>
#include <utility>

#include "linux/launch/desktop_entry.h"

namespace corvane::linux_desktop {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> EntriesIn(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code ignored;
    for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end;
         entry.increment(ignored)) {
        std::error_code unreadable;
        if (entry->path().extension() == ".desktop" && entry->is_regular_file(unreadable))
            entries.push_back(entry->path());
    }
    return entries;
}

}  // namespace

std::vector<InstalledApplication> InstalledApplications(const SearchPlaces& places,
                                                        std::string_view locale) {
    std::vector<InstalledApplication> applications;
    std::set<fs::path> ids;
    for (const fs::path& folder : places.applications)
        for (const fs::path& path : EntriesIn(folder)) {
            if (!ids.insert(path.filename()).second) continue;
            std::ifstream stream(path, std::ios::binary);
            const std::string content(std::istreambuf_iterator<char>(stream), {});
            const auto entry = ReadDesktopEntry(content, locale);
            if (entry && !entry->no_display && !entry->name.empty())
                applications.push_back({entry->name, path.string()});
        }
    std::ranges::sort(applications, [](const auto& a, const auto& b) {
        return std::pair(a.name, a.entry) < std::pair(b.name, b.entry);
    });
    return applications;
}

}  // namespace corvane::linux_desktop
