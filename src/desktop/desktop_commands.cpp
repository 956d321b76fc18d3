// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/desktop_commands.h"

#include <utility>

namespace corvane {

DesktopCommands::DesktopCommands(const Platform& platform, MessageLoop& loop,
                                 forms::Lazy<Form1>& add_programs, forms::Lazy<Form2>& main_window,
                                 SystemCommands::Answers answers)
    : windows(platform.user32, loop, main_window),
      system(platform.kernel32, platform.files, loop, std::move(answers)),
      session(platform.kernel32, platform.tokens, platform.user32),
      cd_door(platform.winmm, loop, main_window),
      recycle_bin(platform.shell32, add_programs),
      internet(platform.wininet) {}

}  // namespace corvane
