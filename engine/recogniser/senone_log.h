// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "engine/recogniser/senone_scores.h"

namespace corvane::engine {

/// Gets at the decoder's senone scores, which it writes to files of a folder only. The file is kept
/// in memory and has a name just while the decoder opens it, so that an end of the process leaves
/// nothing behind but in those microseconds. For one thread at a time.
class SenoneLog {
public:
    /// senones: how many the decoder's model has. memory_folder: a folder whose files are kept in
    /// memory.
    explicit SenoneLog(std::size_t senones, std::string memory_folder = "/dev/shm");
    ~SenoneLog();
    SenoneLog(const SenoneLog&) = delete;
    SenoneLog& operator=(const SenoneLog&) = delete;

    /// The name by which the decoder is to know the folder, always the same.
    [[nodiscard]] std::string Folder() const;

    /// Runs what makes the decoder open its next log, takes hold of that log and makes sure of
    /// memory for so many frames: the decoder does not survive a log that it can't write. False
    /// when there is no log or no room, or the decoder says that it did not start; it must not be
    /// fed then.
    [[nodiscard]] bool Begin(std::size_t frames, const std::function<bool()>& start_utterance);

    /// The utterance that began last, once the decoder has ended it; nothing if it is incomplete.
    [[nodiscard]] std::optional<SenoneScores> Read() const;

private:
    [[nodiscard]] std::size_t FrameBytes() const;

    std::size_t senones_;
    std::string memory_folder_;
    int folder_ = -1;  ///< descriptor whose number stays while the folder behind it changes
    int log_ = -1;
};

}  // namespace corvane::engine
