// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "dictation/typed_text.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

TEST(KeysOf, WhatMeansSomethingInKeyNotationStandsInBraces) {
    const std::pair<const char*, const char*> kTexts[] = {
        {"", ""},
        {"plain text.", "plain text."},
        {"50%", "50{%}"},
        {"1+1", "1{+}1"},
        {"^~", "{^}{~}"},
        {"(a)", "{(}a{)}"},
        {"{ENTER}", "{{}ENTER{}}"},
        {"[x]", "{[}x{]}"},
        {"größer", "größer"},
        {"a-b_c=d", "a-b_c=d"},
    };
    for (const auto& [text, keys] : kTexts) EXPECT_EQ(KeysOf(text), keys);
}

TEST(TypedText, OneCharacterIsOneBackspaceHoweverManyBytesItHas) {
    simulated::SimulatedDesktop desktop;
    TypedText target(desktop.runtime);
    ResumeNext step;
    target.Write(step, "über ");
    target.Scratch(step, "über");
    EXPECT_EQ(desktop.record.Transcript(),
              "SendKeys über  wait\nSendKeys {BS}{BS}{BS}{BS}{BS} wait\n");
}

}  // namespace
}  // namespace corvane
