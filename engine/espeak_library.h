// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <mutex>

namespace corvane::engine {

/// Holds the eSpeak NG library for as long as it lives, speaking US English.
///
/// The library is one state for the whole process: set up at the first use, then never given back,
/// since setting it up again hangs. Without the lock, two users get each other's results. Never
/// make one inside a callback of the library.
class EspeakLibrary {
public:
    EspeakLibrary();

    /// False when the library or its voice data are missing; then it must not be called.
    [[nodiscard]] bool Usable() const { return usable_; }

private:
    std::unique_lock<std::mutex> lock_;
    bool usable_;
};

}  // namespace corvane::engine
