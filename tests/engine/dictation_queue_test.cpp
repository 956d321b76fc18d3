// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <vector>

#include "engine/audio/audio_source.h"
#include "engine/recogniser/dictation.h"

namespace corvane::engine {
namespace {

/// Nobody writes what waits here: no text is wanted yet.
class WaitingDictation : public ::testing::Test {
protected:
    void Say(std::size_t seconds) {
        const std::vector<std::int16_t> sound(seconds * kSampleRate);
        dictation.Begin({}, 0, sound, false);
    }
    void End(std::size_t seconds) {
        dictation.Write({.last_loud = 0,
                         .end = static_cast<std::int64_t>(seconds) * 100,
                         .known = 0,
                         .since = {},
                         .own_phrase = {}});
    }

    Reporter reporter{[](const std::function<void()>&) {}, {}};
    Dictation dictation{{}, reporter};
};

TEST_F(WaitingDictation, TakesUtterancesUntilMinutesOfThemWait) {
    for (int i = 0; i < 30; ++i) {
        Say(10);
        ASSERT_TRUE(dictation.Hearing()) << i;
        End(10);
    }
    Say(10);
    EXPECT_FALSE(dictation.Hearing());
    dictation.Hear(std::vector<std::int16_t>(160));
    End(10);
    EXPECT_FALSE(dictation.Hearing());
}

TEST_F(WaitingDictation, ModelIsTakenAlsoWhenTextIsWantedNoMoreBeforeItIsLoaded) {
    const auto taken = std::make_shared<std::promise<void>>();
    dictation.Want(true);
    dictation.Use({}, [taken] { taken->set_value(); });
    dictation.Want(false);
    EXPECT_EQ(taken->get_future().wait_for(std::chrono::seconds(10)), std::future_status::ready);
}

TEST_F(WaitingDictation, ForgetsWhatWaitsWhenTextIsWantedNoMore) {
    for (int i = 0; i < 30; ++i) {
        Say(10);
        End(10);
    }
    dictation.Want(true);
    dictation.Want(false);
    Say(10);
    EXPECT_TRUE(dictation.Hearing());
}

}  // namespace
}  // namespace corvane::engine
