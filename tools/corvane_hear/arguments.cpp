// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "arguments.h"

#include <filesystem>

namespace corvane::tools {

std::optional<Arguments> ArgumentsOf(const std::vector<std::string>& words) {
    Arguments arguments;
    bool options = true;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (!options || !word.starts_with("--")) {
            arguments.files.push_back(word);
        } else if (word == "--grammar" && i + 1 < words.size()) {
            arguments.grammars.push_back(words[++i]);
        } else if (word == "--user" && i + 1 < words.size()) {
            arguments.user = words[++i];
        } else if (word == "--dictation") {
            arguments.dictation = true;
        } else if (word == "--realtime") {
            arguments.realtime = true;
        } else if (word == "--all") {
            arguments.all_events = true;
        } else if (word == "--final") {
            arguments.hypotheses = false;
        } else if (word == "--features") {
            arguments.features = true;
        } else if (word == "--") {
            options = false;
        } else {
            return std::nullopt;
        }
    }
    if (arguments.files.empty()) return std::nullopt;
    if (arguments.grammars.empty() && !arguments.dictation)
        arguments.grammars.push_back(
            std::filesystem::read_symlink("/proc/self/exe").replace_filename("keywords.xml"));
    return arguments;
}

}  // namespace corvane::tools
