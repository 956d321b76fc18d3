// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/grammar/dictionary.h"

#include <fstream>
#include <sstream>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "platform/error.h"

namespace corvane::engine {
namespace {

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string content{};
    file.seekg(0, std::ios::end);
    if (const auto size = file.tellg(); size > 0) content.resize(static_cast<std::size_t>(size));
    file.seekg(0);
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file || content.empty())
        throw RuntimeError(kAutomationError, "The dictionary can't be read: " + path);
    return content;
}

}  // namespace

Dictionary::Dictionary(std::string path) : path_(std::move(path)) {
    if (!std::ifstream(path_))
        throw RuntimeError(kAutomationError, "There is no dictionary " + path_);
}

std::map<std::string, std::vector<std::string>> Dictionary::Find(
    const std::set<std::string>& words) const {
    const std::unordered_set<std::string_view> wanted(words.begin(), words.end());
    std::map<std::string, std::vector<std::string>> found;
    const std::string content = ReadFile(path_);
    std::string_view rest = content;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const std::string_view entry = line.substr(0, line.find_first_of(" \t"));
        const std::string_view word = entry.substr(0, entry.find('('));
        if (word.empty() || !wanted.contains(word)) continue;
        const std::size_t phones = line.find_first_not_of(" \t", entry.size());
        if (phones == std::string_view::npos) continue;
        std::string ways(line.substr(phones));
        while (!ways.empty() && (ways.back() == '\r' || ways.back() == ' ')) ways.pop_back();
        found[std::string(word)].push_back(std::move(ways));
    }
    return found;
}

}  // namespace corvane::engine
