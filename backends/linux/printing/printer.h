// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/printer.h"

namespace corvane::linux_desktop {

/// No printer at all.
class Printer final : public IPrinter {
public:
    void Print(const std::string& text) override;
    void SetScaleMode(ScaleMode mode) override;
    [[nodiscard]] float ScaleX(float width, ScaleMode from, ScaleMode to) const override;
    [[nodiscard]] float ScaleY(float height, ScaleMode from, ScaleMode to) const override;
    [[nodiscard]] Twips Width() const override;
    [[nodiscard]] Twips Height() const override;
    [[nodiscard]] float ScaleWidth() const override;
    [[nodiscard]] float ScaleHeight() const override;
    [[nodiscard]] HDC hDC() const override;
    void NewPage() override;
    void EndDoc() override;
};

}  // namespace corvane::linux_desktop
