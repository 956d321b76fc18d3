// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvane::tools {

/// What corvane-hear was asked to do.
struct Arguments {
    std::vector<std::string> grammars;  ///< each for a context of its own
    std::vector<std::string> files;
    std::string user;  ///< folder of voice and words; empty: none
    bool dictation = false;
    bool realtime = false;
    bool all_events = false;
    bool hypotheses = true;
    bool features = false;
};

inline constexpr const char* kUsage =
    "usage: corvane-hear [--grammar FILE]... [--dictation] [--realtime] [--all] [--final] "
    "[--features] [--user FOLDER] WAV...\n";

/// Nothing when they make no sense. Without a grammar or dictation it is the grammar beside the
/// program.
[[nodiscard]] std::optional<Arguments> ArgumentsOf(const std::vector<std::string>& words);

}  // namespace corvane::tools
