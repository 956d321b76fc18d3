// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "contract/desktop_world.h"

namespace corvane {
namespace {

class ClipboardContract : public ::testing::Test {
protected:
    std::unique_ptr<testing::DesktopWorld> world = testing::MakeDesktopWorld();
    IClipboard& clipboard = world->clipboard();
};

TEST_F(ClipboardContract, WhatAnotherProgramCopiesIsThereAsText) {
    world->CopyElsewhere("milk \xC3\xA4 bread");
    EXPECT_EQ(clipboard.GetText(), "milk \xC3\xA4 bread");
    EXPECT_EQ(clipboard.GetText(), "milk \xC3\xA4 bread") << "reading takes nothing away";
    world->CopyElsewhere("");
    EXPECT_EQ(clipboard.GetText(), "");
}

TEST_F(ClipboardContract, TheNumberRisesWithEachCopyBeItTheSameText) {
    std::uint32_t last = clipboard.SequenceNumber();
    for (const char* text : {"milk", "milk", "bread"}) {
        world->CopyElsewhere(text);
        EXPECT_GT(clipboard.SequenceNumber(), last);
        last = clipboard.SequenceNumber();
    }
}

TEST_F(ClipboardContract, TheNumberStaysWhileNobodyCopies) {
    world->CopyElsewhere("milk");
    const std::uint32_t before = clipboard.SequenceNumber();
    (void)clipboard.GetText();
    EXPECT_EQ(clipboard.SequenceNumber(), before);
}

}  // namespace
}  // namespace corvane
