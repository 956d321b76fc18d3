// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "platform/rich_edit.h"

class QTextEdit;

namespace corvane::linux_desktop {

class PrintedPage;

enum class Rendering { Measure, Draw };

/// Lays out the text of an editor on a page, as IUser32 promises of EM_FORMATRANGE. Nothing is kept
/// from one call to the next.
std::int32_t FormatRange(const QTextEdit& editor, const FORMATRANGE& range, PrintedPage& page,
                         Rendering rendering);

}  // namespace corvane::linux_desktop
