// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/automation.h"
#include "platform/language_runtime.h"
#include "runtime/nullable.h"

namespace corvane {

/// The help page beside the program, in a browser.
class HelpPage {
public:
    HelpPage(IAutomation& automation, const ILanguageRuntime& runtime);

    HelpPage(const HelpPage&) = delete;
    HelpPage& operator=(const HelpPage&) = delete;

    /// Opens the page in a new browser, in place of any earlier one.
    void Open();

    /// The browser of the page; empty when none is open.
    Nullable<IInternetExplorer> ie;

private:
    void ie_OnQuit();

    IAutomation& automation_;
    const ILanguageRuntime& runtime_;
};

}  // namespace corvane
