// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStyle>

#include "linux/training/voice_session.h"

/// What a training says to the one who reads.
namespace corvane::linux_desktop {

[[nodiscard]] QString WordsOf(VoiceSession::Advice advice);
/// What may be said instead of a sentence.
[[nodiscard]] QString WishesOf(const VoiceSession::State& state);
[[nodiscard]] QStyle::StandardPixmap PictureOf(VoiceSession::Advice advice);

/// What came of a training that is over, in a few words.
[[nodiscard]] QString HeadlineOf(const VoiceSession::State& state);
/// And what that means.
[[nodiscard]] QString ExplanationOf(const VoiceSession::State& state);
/// What went wrong, and what can be done.
[[nodiscard]] QString TroubleOf(const VoiceSession::State& state);

}  // namespace corvane::linux_desktop
