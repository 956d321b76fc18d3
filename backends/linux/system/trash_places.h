// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "linux/system/drives.h"
#include "linux/system/trash.h"

namespace corvane::linux_desktop {

/// What a machine tells of where trash may lie.
struct TrashMap {
    std::string mountinfo;      ///< the kernel's table of mounts
    std::vector<Drive> drives;  ///< as DrivesOf that table
    std::string home_trash;     ///< a full path
    uid_t person = 0;
};

/// The places of one drive, by a path that begins with its letter and ":", or of all drives by the
/// empty text; volumes behind a network come last. Nothing when there is no such drive.
[[nodiscard]] std::optional<TrashPlaces> TrashPlacesOf(const TrashMap& map,
                                                       const std::string& root);

/// Those of this machine at the moment, for the person whose process this is. It may take as long
/// as a file system takes to answer.
[[nodiscard]] std::optional<TrashPlaces> PresentTrashPlaces(const std::string& root);

}  // namespace corvane::linux_desktop
