// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "linux/training/words_page.h"
#include "platform/user32.h"

namespace corvane::linux_desktop {

/// Shows the user's words under that title over our window `parent`, with `word` filled in, and
/// returns when the dialog is closed. Messages run meanwhile.
void ShowWordsDialog(HWND parent, const std::string& title, const std::string& word,
                     engine::UserProfile& profile, WordsPage::Means means);

}  // namespace corvane::linux_desktop
