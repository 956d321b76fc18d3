// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/adaptation/readable_pieces.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane::engine {
namespace {

std::string Repeated(const std::string& word, int times) {
    std::string text = word;
    for (int i = 1; i < times; ++i) text += " " + word;
    return text;
}

TEST(ReadablePieces, WhatCanBeReadInOneGoIsLeftAsItIs) {
    for (const std::string& text : {std::string("Green  apples. Red\tones?"), std::string(" "),
                                    std::string("?! ..."), Repeated("one", 25)})
        EXPECT_EQ(ReadablePieces(text), std::vector<std::string>{text});
}

TEST(ReadablePieces, ALongTextIsCutWhereSentencesEnd) {
    EXPECT_EQ(
        ReadablePieces(Repeated("a", 9) + " b! " + Repeated("c", 9) + " d. " + Repeated("e", 9)),
        (std::vector<std::string>{Repeated("a", 9) + " b! " + Repeated("c", 9) + " d.",
                                  Repeated("e", 9)}));
}

TEST(ReadablePieces, ALongSentenceIsCutBehindACommaOrElseBehindAWord) {
    EXPECT_EQ(ReadablePieces(Repeated("a", 20) + ", " + Repeated("b", 55)),
              (std::vector<std::string>{Repeated("a", 20) + ",", Repeated("b", 25),
                                        Repeated("b", 25), Repeated("b", 5)}));
}

}  // namespace
}  // namespace corvane::engine
