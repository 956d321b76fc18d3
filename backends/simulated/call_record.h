// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace corvane::simulated {

/// What the system asked of the simulated world, one line a call, and which calls are to fail.
class CallRecord {
public:
    /// `now` tells the virtual time.
    explicit CallRecord(std::function<std::chrono::milliseconds()> now);

    /// Notes a call under the operation's name, then raises if the operation was told to fail.
    void Call(const std::string& operation, const std::string& arguments = {});
    /// Raises if the operation was told to fail; notes nothing. For calls too many to be read.
    void Quietly(const std::string& operation);

    /// From now on the operation raises that error, after `spared` calls that still succeed.
    void Fail(const std::string& operation, std::int32_t number, int spared = 0);
    void Heal(const std::string& operation);

    /// All lines since the start or the last Clear. Once time has moved a line begins with it, as
    /// in "t=1200 SendKeys ^c wait".
    [[nodiscard]] const std::string& Transcript() const { return transcript_; }
    void Clear() { transcript_.clear(); }

private:
    struct Fault {
        std::int32_t number = 0;
        int spared = 0;
    };

    std::function<std::chrono::milliseconds()> now_;
    std::string transcript_;
    std::map<std::string, Fault> faults_;
};

}  // namespace corvane::simulated
