// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "linux/launch/program_search.h"

namespace corvane::linux_desktop {

struct InstalledApplication {
    std::string name;   ///< as people know it
    std::string entry;  ///< full path of its desktop entry
};

/// The applications that a desktop's menu would show, in the order of their names. `locale`, as in
/// "de_DE", chooses the language of the names. Of entries of one id the first folder's counts.
[[nodiscard]] std::vector<InstalledApplication> InstalledApplications(const SearchPlaces& places,
                                                                      std::string_view locale);

}  // namespace corvane::linux_desktop
