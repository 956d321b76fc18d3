// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/room.h"
#include "support/temporary_file.h"

namespace corvane::engine::testing {

inline constexpr const char* kThanks = "thank you very much for your help";

/// Turns a context that listens for commands to dictation, as the program does it.
void StartDictation(ISpeechRecoGrammar& grammar);

[[nodiscard]] std::string TextOf(const std::shared_ptr<ISpeechRecoResult>& result);

/// Whether at least so large a share of the wanted words was written, in their order, whatever
/// their capitals and signs. Free text is never right for sure.
[[nodiscard]] ::testing::AssertionResult HasWordsOf(const std::string& wanted,
                                                    const std::string& written, double share);
[[nodiscard]] ::testing::AssertionResult Says(const std::shared_ptr<ISpeechRecoResult>& result,
                                              const std::string& wanted, double share = 0.5);

/// A room in which somebody may dictate beside commands for the time and the months.
class Dictating : public ::testing::Test {
protected:
    void SetUp() override {
        if (!CanSpeak()) GTEST_SKIP() << "flite, which speaks in this test, is missing";
    }

    TemporaryFile time_file{GrammarOf(RuleOf("the time", "what time is it"))};
    TemporaryFile months_file{GrammarOf(RuleOf("May", "May") + RuleOf("March", "March"))};
    Room room;
};

}  // namespace corvane::engine::testing
