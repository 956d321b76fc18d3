// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/failure.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "runtime/nullable.h"
#include "support/expect_error.h"

namespace corvane {
namespace {

[[noreturn]] void Fail() {
    throw RuntimeError(kFileNotFound, "File not found");
}

TEST(ResumeNext, AFailingStepIsSkippedAndTheNextOneRuns) {
    ResumeNext step;
    int ran = 0;
    step([&] { Fail(); });
    step([&] { ++ran; });
    EXPECT_EQ(ran, 1);
}

TEST(ResumeNext, AFailedAssignmentKeepsTheOldValue) {
    ResumeNext step;
    int value = 3;
    step([&] { value = (Fail(), 4); });
    EXPECT_EQ(value, 3);
}

TEST(ResumeNext, AFailedTestCountsAsPassed) {
    ResumeNext step;
    EXPECT_TRUE(step.test([]() -> bool { Fail(); }));
    EXPECT_TRUE(step.test([] { return true; }));
    EXPECT_FALSE(step.test([] { return false; }));
}

TEST(ResumeNext, OnlyRunTimeErrorsAreSkipped) {
    ResumeNext step;
    EXPECT_THROW(step([] { throw std::logic_error("a bug"); }), std::logic_error);
}

TEST(OnError, AnErrorAbandonsTheBodyForTheHandler) {
    std::string order;
    on_error(
        [&] {
            order += "body ";
            Fail();
        },
        [&](const RuntimeError&) { order += "handler"; });
    EXPECT_EQ(order, "body handler");
}

TEST(OnError, ABodyThatSucceedsHasNoHandler) {
    on_error([] {}, [](const RuntimeError&) { ADD_FAILURE(); });
}

TEST(Nullable, UseOfAMissingObjectIsError91) {
    Nullable<std::string> object;
    EXPECT_TRUE(object.empty());
    EXPECT_ERROR(kObjectNotSet, object->size());
}

TEST(Nullable, AnObjectThatIsThereIsUsed) {
    Nullable<std::string> object(std::make_shared<std::string>("voice"));
    EXPECT_EQ(object->size(), 5U);
}

}  // namespace
}  // namespace corvane
