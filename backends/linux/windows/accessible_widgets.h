// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace corvane::linux_desktop {

/// Tells screen readers, and programs that act for a person, about those widgets of ours of which
/// the toolkit would tell too little: lists, the calendar's days, gauges, pictures and lines. May
/// be called again, to no effect.
void TellOfOurWidgets();

/// Forgets what the toolkit has made of a new widget while it was still being built: it asks early,
/// and could not know yet what the widget would be.
void ForgetEarlyAnswers(QWidget& widget);

}  // namespace corvane::linux_desktop
