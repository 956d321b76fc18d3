// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "linux/system/trash_places.h"
#include "platform/user32.h"

namespace corvane::linux_desktop {

/// What came of emptying; 0 is the only success.
enum EmptyBinResult : std::int32_t {
    kBinEmptied = 0,
    kBinWasEmpty = 1,
    kBinNotAllEmptied = 2,
    kBinCancelled = 3,
    kBinIsBeingEmptied = 4,
    kNoSuchDrive = 5,
};

/// The person's trash on all drives. Needs a QApplication.
class RecycleBin {
public:
    using FindPlaces = std::function<std::optional<TrashPlaces>(const std::string& root)>;

    /// `find_places` is called from another thread.
    explicit RecycleBin(FindPlaces find_places = &PresentTrashPlaces);

    /// As IShell32::SHEmptyRecycleBinA. The work is done by another thread. For the first second
    /// nothing else happens here; should it take longer, a window shows how far it is and lets the
    /// person cancel, and while that window is there messages run, as in any dialog, since it may
    /// take minutes. A second call among those messages does nothing. A file system that does not
    /// answer is given up five seconds after the person has cancelled.
    std::int32_t Empty(HWND owner, const std::string& root, std::uint32_t flags);

private:
    FindPlaces find_places_;
    bool busy_ = false;
};

}  // namespace corvane::linux_desktop
