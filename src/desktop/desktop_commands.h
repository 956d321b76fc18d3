// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/cd_door.h"
#include "desktop/internet_commands.h"
#include "desktop/recycle_bin.h"
#include "desktop/session_end.h"
#include "desktop/system_commands.h"
#include "desktop/window_commands.h"
#include "platform/platform.h"

namespace corvane {

/// All that spoken commands do to windows and to the machine.
struct DesktopCommands {
    DesktopCommands(const Platform& platform, MessageLoop& loop, forms::Lazy<Form1>& add_programs,
                    forms::Lazy<Form2>& main_window, SystemCommands::Answers answers);

    WindowCommands windows;
    SystemCommands system;
    SessionEnd session;
    CdDoor cd_door;
    RecycleBin recycle_bin;
    InternetCommands internet;
};

}  // namespace corvane
