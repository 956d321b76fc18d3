// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "linux/system/trash.h"
#include "platform/user32.h"

namespace corvane::linux_desktop {

/// Shows how far the emptying is until it is done, over the window `owner` if that is seen. Its
/// button cancels the emptying, which is then given five seconds to come to an end. Messages run
/// meanwhile. The keyboard stays where it is: what a person types is meant for somebody else.
void WaitWithWindow(Emptying& emptying, HWND owner, const std::function<bool()>& is_done);

}  // namespace corvane::linux_desktop
