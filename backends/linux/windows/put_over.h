// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/user32.h"

class QDialog;
class QWidget;

namespace corvane::linux_desktop {

/// Has a window that is not shown yet stand over our window `owner` once it is, if that one is
/// seen. It is not its child: the owner may be unloaded meanwhile.
void PutOver(HWND owner, QWidget& window);

/// Shows a dialog over our window `owner`, or in front of all when that is none or isn't seen, and
/// returns when it is closed. Our other windows take no input meanwhile; messages run.
void ExecOver(HWND owner, QDialog& dialog);

}  // namespace corvane::linux_desktop
