// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/help_page.h"

#include <string>

#include "runtime/text.h"

namespace corvane {

HelpPage::HelpPage(IAutomation& automation, const ILanguageRuntime& runtime)
    : automation_(automation), runtime_(runtime) {}

void HelpPage::Open() {
    ie = automation_.CreateInternetExplorer({.OnQuit = [this] { ie_OnQuit(); }});
    ie->SetVisible(true);
    const std::string separator(1, runtime_.PathSeparator());
    std::string page = runtime_.ExecutableFolder();
    if (LastCharacter(page) != separator) page += separator;
    ie->Navigate2(page + "help.html");
}

void HelpPage::ie_OnQuit() {
    ie = {};
}

}  // namespace corvane
