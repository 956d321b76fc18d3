// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/call_record.h"

#include <utility>

#include "platform/error.h"

namespace corvane::simulated {

CallRecord::CallRecord(std::function<std::chrono::milliseconds()> now) : now_(std::move(now)) {}

void CallRecord::Call(const std::string& operation, const std::string& arguments) {
    if (const auto now = now_().count(); now > 0) transcript_ += "t=" + std::to_string(now) + " ";
    transcript_ += operation;
    if (!arguments.empty()) transcript_ += " " + arguments;
    transcript_ += "\n";
    Quietly(operation);
}

void CallRecord::Quietly(const std::string& operation) {
    const auto fault = faults_.find(operation);
    if (fault == faults_.end()) return;
    if (fault->second.spared > 0) {
        --fault->second.spared;
        return;
    }
    throw RuntimeError(fault->second.number, operation + " was told to fail");
}

void CallRecord::Fail(const std::string& operation, std::int32_t number, int spared) {
    faults_[operation] = {number, spared};
}

void CallRecord::Heal(const std::string& operation) {
    faults_.erase(operation);
}

}  // namespace corvane::simulated
