// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/user32.h"

namespace corvane::linux_desktop {

class ControlHandles;
class Gdi;

/// Calls on windows of this program; those of others take no messages.
class User32 final : public IUser32 {
public:
    /// Both must outlive it.
    User32(const ControlHandles& controls, const Gdi& gdi) : controls_(controls), gdi_(gdi) {}

    bool ReleaseCapture() override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              std::int32_t lParam) override;
    std::int32_t SendMessageA(HWND hWnd, std::uint32_t msg, std::uint32_t wParam,
                              const FORMATRANGE* range) override;
    std::int32_t GetSysColor(std::int32_t index) override;

private:
    const ControlHandles& controls_;
    const Gdi& gdi_;
};

}  // namespace corvane::linux_desktop
