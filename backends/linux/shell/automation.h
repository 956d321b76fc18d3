// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/automation.h"

namespace corvane::linux_desktop {

/// The desktop's default browser in the place of a browser of our own: it shows itself and never
/// tells when it is closed.
class Automation final : public IAutomation {
public:
    [[nodiscard]] std::shared_ptr<IInternetExplorer> CreateInternetExplorer(
        InternetExplorerEvents events) override;
};

}  // namespace corvane::linux_desktop
