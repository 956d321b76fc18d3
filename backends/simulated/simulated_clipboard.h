// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/language_runtime.h"
#include "simulated/call_record.h"

namespace corvane::simulated {

/// A clipboard, and the programs that copy into it. Operations that can be told to fail:
/// Clipboard.GetText, Clipboard.SequenceNumber.
class SimulatedClipboard final : public IClipboard {
public:
    explicit SimulatedClipboard(CallRecord& record) : record_(record) {}

    std::string GetText() override {
        record_.Call("Clipboard.GetText");
        return text_;
    }
    std::uint32_t SequenceNumber() override {
        record_.Quietly("Clipboard.SequenceNumber");
        return copies_;
    }

    /// A program copies a text.
    void Copy(std::string text) {
        text_ = std::move(text);
        ++copies_;
    }

private:
    CallRecord& record_;
    std::string text_;
    std::uint32_t copies_ = 0;
};

}  // namespace corvane::simulated
