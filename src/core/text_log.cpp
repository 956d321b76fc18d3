// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/text_log.h"

namespace corvane {

TextLog::TextLog(forms::Lazy<Form2>& main_window) : main_window_(main_window) {}

void TextLog::Append(const std::string& addition) {
    forms::TextBox& log = main_window_->Text1;
    log.SetText(log.Text() + addition);
}

}  // namespace corvane
