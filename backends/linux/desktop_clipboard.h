// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "linux/session/clipboard.h"
#include "platform/language_runtime.h"

namespace corvane::linux_desktop {

/// The clipboard of the session, with the system's own line ends. Needs a QGuiApplication.
class DesktopClipboard final : public IClipboard {
public:
    explicit DesktopClipboard(std::unique_ptr<Clipboard> clipboard);

    [[nodiscard]] std::string GetText() override;
    [[nodiscard]] std::uint32_t SequenceNumber() override { return clipboard_->Copies(); }

private:
    std::unique_ptr<Clipboard> clipboard_;
};

/// The clipboard of the X11 session in which Qt shows our windows.
[[nodiscard]] std::unique_ptr<Clipboard> MakeSessionClipboard();

}  // namespace corvane::linux_desktop
