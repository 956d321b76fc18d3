// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grammar/form1.h"
#include "platform/shell32.h"
#include "runtime/forms/form.h"

namespace corvane {

class RecycleBin {
public:
    RecycleBin(IShell32& shell32, forms::Lazy<Form1>& add_programs)
        : shell32_(shell32), add_programs_(add_programs) {}

    /// Empties the bins of all drives without a question. Progress may be shown, over the Add
    /// Programs window, which is loaded unseen for that if it is not there yet.
    void Empty() { shell32_.SHEmptyRecycleBinA(add_programs_->hWnd(), "", SHERB_NOCONFIRMATION); }

private:
    IShell32& shell32_;
    forms::Lazy<Form1>& add_programs_;
};

}  // namespace corvane
