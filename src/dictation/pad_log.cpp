// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/pad_log.h"

#include "runtime/text.h"

namespace corvane {

PadLog::PadLog(forms::Lazy<Form5>& pad) : pad_(pad) {}

void PadLog::Append(const std::string& line) {
    forms::TextBox& log = pad_->Text1;
    const Long start = log.SelStart();
    const Long length = log.SelLength();
    log.SetText(log.Text() + line);
    log.SetSelStart(start);
    log.SetSelLength(length);
}

void PadLog::MoveCaretToEnd() {
    forms::TextBox& log = pad_->Text1;
    log.SetSelStart(Len(log.Text()));
}

}  // namespace corvane
