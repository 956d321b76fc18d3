// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/advapi32.h"

namespace corvane {

/// Asks for speech training at the next start, as an installation does, unless it has been asked
/// for or answered already. What can't be written is no hindrance: the training can be had later
/// too.
void AskForFirstTraining(IAdvapi32& registry);

}  // namespace corvane
