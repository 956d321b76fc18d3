// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/gdi32.h"
#include "platform/printer.h"
#include "platform/user32.h"
#include "runtime/forms/text_box.h"
#include "runtime/numbers.h"

namespace corvane {

/// Distances from the paper's edges, in twips.
struct PrintMargins {
    Long left, top, right, bottom;
};

/// Prints the text of a rich text box as the box lays it out.
class RichTextPrinter {
public:
    RichTextPrinter(IPrinter& printer, IGdi32& gdi32, IUser32& user32);

    /// Prints all of the box's text, on as many pages as it needs; an empty text on one. Never
    /// raises: when something fails the job is abandoned where it is.
    void PrintRichText(const forms::TextBox& box, const PrintMargins& margins);

private:
    void PrintPages(const forms::TextBox& box, const PrintMargins& margins);

    IPrinter& printer_;
    IGdi32& gdi32_;
    IUser32& user32_;
};

}  // namespace corvane
