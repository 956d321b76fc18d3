// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/gdi32.h"
#include "platform/printer.h"
#include "platform/user32.h"

namespace corvane::testing {

/// The printing of one backend as the contract's tests see it. There is a printer.
class PrintingWorld {
public:
    using Words = std::vector<std::string>;
    using Job = std::vector<Words>;  // page by page

    virtual ~PrintingWorld() = default;
    [[nodiscard]] virtual IPrinter& printer() = 0;
    [[nodiscard]] virtual IGdi32& gdi32() = 0;
    [[nodiscard]] virtual IUser32& user32() = 0;
    /// The rich text control, which holds that text from now on.
    [[nodiscard]] virtual HWND TextBoxWith(const std::string& text) = 0;
    /// What has come out so far.
    [[nodiscard]] virtual std::vector<Job> Jobs() const = 0;
};

[[nodiscard]] std::unique_ptr<PrintingWorld> MakePrintingWorld();

[[nodiscard]] PrintingWorld::Words WordsOf(const std::string& text);

}  // namespace corvane::testing
