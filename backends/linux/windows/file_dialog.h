// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/controls.h"

class QWidget;

namespace corvane::linux_desktop {

/// Asks a person for a file, as IWindowPeer::AskForFile promises. Where programs are asked for,
/// those installed on the desktop are there by their own names, and whatever can be started here
/// comes back with ".exe" behind its name.
[[nodiscard]] std::optional<std::string> ChooseFile(const FileDialogRequest& request,
                                                    QWidget* holder);

}  // namespace corvane::linux_desktop
