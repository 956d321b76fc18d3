// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form_tools.h"

namespace corvane {

void StartFormDrag(IUser32& user32, const forms::Form& form) {
    user32.ReleaseCapture();
    user32.SendMessageA(form.hWnd(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

void UnloadGivenForm(forms::Form& form) {
    form.Close();
}

}  // namespace corvane
