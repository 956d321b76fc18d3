// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/control_handles.h"

namespace corvane::linux_desktop {

HWND ControlHandles::HandleOf(QWidget& control) {
    for (const auto& [handle, known] : controls_)
        if (known == &control) return handle;
    std::erase_if(controls_, [](const auto& entry) { return entry.second.isNull(); });
    controls_[++last_] = &control;
    return last_;
}

QWidget* ControlHandles::Find(HWND handle) const {
    const auto found = controls_.find(handle);
    return found == controls_.end() ? nullptr : found->second.data();
}

}  // namespace corvane::linux_desktop
