// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/command_help.h"

#include <algorithm>
#include <utility>

#include "runtime/text.h"

namespace corvane {

std::string SpokenDescription(const CommandDescription& command) {
    constexpr std::string_view kPauseMilliseconds = "\"100\"";
    std::string sentence(command.opening);
    if (!command.closing.empty()) sentence.append(kPauseMilliseconds).append(command.closing);
    return sentence;
}

CommandHelp::CommandHelp(forms::Lazy<Form2>& main_window,
                         std::function<void(const std::string&)> say)
    : main_window_(main_window), say_(std::move(say)) {}

void CommandHelp::List1_DblClick() {
    const forms::ListBox& list = main_window_->List1;
    const std::string key = LCase(list.List(list.ListIndex()));
    const auto* row = std::ranges::find(kCommandDescriptions, key, &CommandDescription::key);
    if (row != kCommandDescriptions.end()) say_(SpokenDescription(*row));
}

}  // namespace corvane
