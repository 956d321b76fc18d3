// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/user32.h"
#include "runtime/forms/form.h"

/// Tools for a window without a title bar. Nothing leads to them at present.
namespace corvane {

/// Lets the person drag the window as if by its title bar.
void StartFormDrag(IUser32& user32, const forms::Form& form);

void UnloadGivenForm(forms::Form& form);

}  // namespace corvane
