// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <array>

#include "contract/desktop_world.h"

namespace corvane {
namespace {

constexpr WindowDescription kOwn{.name = "Own",
                                 .caption = "A window of ours",
                                 .client_width = 6000,
                                 .client_height = 4500,
                                 .controls = {}};

/// Windows of the system and of other programs, by the window system's own calls.
class WindowContract : public ::testing::Test {
protected:
    /// A window of the system is shown and in front.
    HWND ShowOwn() {
        own->Show();
        EXPECT_TRUE(InFront(own->hWnd()));
        return own->hWnd();
    }
    [[nodiscard]] bool InFront(HWND window) {
        return world->Becomes([&] { return user32.GetForegroundWindow() == window; });
    }
    [[nodiscard]] bool Seen(HWND window, bool seen = true) {
        return world->Becomes([&] { return world->CanBeSeen(window) == seen; });
    }
    [[nodiscard]] bool Fills(HWND window, bool fills = true) {
        return world->Becomes([&] { return world->FillsTheScreen(window) == fills; });
    }
    [[nodiscard]] bool Iconic(HWND window, bool iconic = true) {
        return world->Becomes([&] { return user32.IsIconic(window) == iconic; });
    }
    /// As whoever is refused the front goes about it.
    void ForceToFront(HWND window) {
        const auto other = user32.GetWindowThreadProcessId(user32.GetForegroundWindow(), nullptr);
        const auto target = user32.GetWindowThreadProcessId(window, nullptr);
        user32.AttachThreadInput(other, target, -1);
        user32.SetForegroundWindow(window);
        user32.AttachThreadInput(other, target, 0);
    }

    std::unique_ptr<testing::DesktopWorld> world = testing::MakeDesktopWorld();
    IUser32& user32 = world->user32();
    int close_requests = 0;
    std::unique_ptr<IWindowPeer> own =
        world->toolkit().CreateWindow(kOwn, {.CloseRequested = [this] { ++close_requests; }});
};

TEST_F(WindowContract, AWindowOfTheSystemIsKnownByTheHandleOfItsPeer) {
    const HWND ours = ShowOwn();
    EXPECT_NE(ours, 0U);
    EXPECT_EQ(user32.GetForegroundWindow(), ours);
}

TEST_F(WindowContract, TheWindowInFrontIsTheOneThatCameLast) {
    const HWND ours = ShowOwn();
    const HWND other = world->OpenOther("another");
    EXPECT_EQ(user32.GetForegroundWindow(), other);
    EXPECT_NE(other, ours);
}

TEST_F(WindowContract, ACaptionIsReadAsFarAsThereIsRoom) {
    const HWND other = world->OpenOther("another");
    EXPECT_EQ(user32.GetWindowTextLengthA(other), 7);
    std::array<char, 10> room{};
    EXPECT_EQ(user32.GetWindowTextA(other, room.data(), 10), 7);
    EXPECT_STREQ(room.data(), "another");
    room.fill('?');
    EXPECT_EQ(user32.GetWindowTextA(other, room.data(), 4), 3);
    EXPECT_STREQ(room.data(), "ano");
    EXPECT_EQ(room[4], '?');
}

TEST_F(WindowContract, WithACountOfZeroNothingOfACaptionIsRead) {
    const HWND other = world->OpenOther("another");
    char untouched = '?';
    EXPECT_EQ(user32.GetWindowTextA(other, &untouched, 0), 0);
    EXPECT_EQ(untouched, '?');
}

TEST_F(WindowContract, WindowsOfOneProgramShareAThreadAndThoseOfOthersDoNot) {
    const HWND ours = ShowOwn();
    const auto second = world->toolkit().CreateWindow(kOwn, {.CloseRequested = [] {}});
    second->Show();
    ASSERT_TRUE(InFront(second->hWnd()));
    const HWND other = world->OpenOther("another");
    std::uint32_t process = 0;
    const auto thread = user32.GetWindowThreadProcessId(ours, &process);
    EXPECT_NE(thread, 0U);
    EXPECT_NE(process, 0U);
    EXPECT_EQ(user32.GetWindowThreadProcessId(second->hWnd(), nullptr), thread);
    EXPECT_NE(user32.GetWindowThreadProcessId(other, nullptr), thread);
}

TEST_F(WindowContract, AnotherProgramIsAskedToCloseAndNotWaitedFor) {
    const HWND other = world->OpenOther("another");
    EXPECT_TRUE(user32.PostMessageA(other, WM_CLOSE, 0, 0));
    EXPECT_TRUE(Seen(other, false));
    EXPECT_TRUE(world->Becomes([&] { return user32.GetForegroundWindow() != other; }));
}

TEST_F(WindowContract, AWindowOfTheSystemIsAskedToCloseByAMessageOfItsOwn) {
    const HWND ours = ShowOwn();
    EXPECT_TRUE(user32.PostMessageA(ours, WM_CLOSE, 0, 0));
    EXPECT_EQ(close_requests, 0) << "not inside the call";
    EXPECT_TRUE(world->Becomes([&] { return close_requests > 0; }));
    EXPECT_EQ(close_requests, 1);
    EXPECT_TRUE(Seen(ours)) << "closing is for its program to do";
}

TEST_F(WindowContract, AMinimisedWindowLeavesTheFrontAndIsRestored) {
    const HWND ours = ShowOwn();
    const HWND other = world->OpenOther("another");
    EXPECT_TRUE(user32.ShowWindow(other, SW_MINIMIZE));
    EXPECT_TRUE(Iconic(other));
    EXPECT_TRUE(InFront(ours));
    EXPECT_FALSE(user32.IsIconic(ours));
    EXPECT_TRUE(user32.ShowWindow(other, SW_RESTORE)) << "a minimised window is a visible one";
    EXPECT_TRUE(Iconic(other, false));
    EXPECT_TRUE(Seen(other));
}

TEST_F(WindowContract, AWindowFillsTheScreenAndGoesBackToItsNormalSize) {
    const HWND other = world->OpenOther("another");
    EXPECT_TRUE(user32.ShowWindow(other, SW_SHOWMAXIMIZED));
    EXPECT_TRUE(Fills(other));
    EXPECT_TRUE(user32.ShowWindow(other, SW_SHOWNORMAL));
    EXPECT_TRUE(Fills(other, false));
}

TEST_F(WindowContract, AWindowOfFixedSizeFillsTheScreenAllTheSame) {
    const HWND ours = ShowOwn();
    EXPECT_TRUE(user32.ShowWindow(ours, SW_SHOWMAXIMIZED));
    EXPECT_TRUE(Fills(ours));
    EXPECT_TRUE(user32.ShowWindow(ours, SW_SHOWNORMAL));
    EXPECT_TRUE(Fills(ours, false));
}

TEST_F(WindowContract, NormalSizeBringsBackAMinimisedWindow) {
    const HWND other = world->OpenOther("another");
    user32.ShowWindow(other, SW_MINIMIZE);
    ASSERT_TRUE(Iconic(other));
    user32.ShowWindow(other, SW_SHOWNORMAL);
    EXPECT_TRUE(Iconic(other, false));
    EXPECT_TRUE(Seen(other));
}

TEST_F(WindowContract, WithTheInputsJoinedAWindowComesToTheFront) {
    const HWND ours = ShowOwn();
    (void)world->OpenOther("another");
    ForceToFront(ours);
    EXPECT_TRUE(InFront(ours));
}

TEST_F(WindowContract, AMinimisedWindowOfTheSystemComesBack) {
    const HWND ours = ShowOwn();
    user32.ShowWindow(ours, SW_MINIMIZE);
    ASSERT_TRUE(Iconic(ours));
    (void)world->OpenOther("another");
    ForceToFront(ours);
    user32.ShowWindow(ours, user32.IsIconic(ours) ? SW_RESTORE : SW_SHOW);
    EXPECT_TRUE(Iconic(ours, false));
    EXPECT_TRUE(Seen(ours));
    EXPECT_TRUE(InFront(ours));
}

TEST_F(WindowContract, AHiddenWindowOfTheSystemIsShown) {
    const HWND ours = ShowOwn();
    own->Hide();
    ASSERT_TRUE(Seen(ours, false));
    (void)world->OpenOther("another");
    ForceToFront(ours);
    EXPECT_FALSE(world->CanBeSeen(ours)) << "coming to the front shows nothing";
    EXPECT_FALSE(user32.IsIconic(ours));
    EXPECT_FALSE(user32.ShowWindow(ours, SW_SHOW)) << "it was not visible before";
    EXPECT_TRUE(Seen(ours));
    EXPECT_TRUE(InFront(ours));
}

TEST_F(WindowContract, WhereNoWindowIsEveryCallIsPassedOver) {
    for (const HWND none : {HWND{0}, HWND{0x7FFFFFF1}}) {
        char room = '?';
        EXPECT_EQ(user32.GetWindowTextLengthA(none), 0);
        EXPECT_EQ(user32.GetWindowTextA(none, &room, 1), 0);
        EXPECT_EQ(user32.GetWindowThreadProcessId(none, nullptr), 0U);
        EXPECT_FALSE(user32.PostMessageA(none, WM_CLOSE, 0, 0));
        EXPECT_FALSE(user32.SetForegroundWindow(none));
        EXPECT_FALSE(user32.IsIconic(none));
        for (const auto command : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED, SW_SHOW, SW_MINIMIZE})
            EXPECT_FALSE(user32.ShowWindow(none, command));
    }
}

TEST_F(WindowContract, AWindowThatHasGoneIsNoWindow) {
    const HWND other = world->OpenOther("another");
    user32.PostMessageA(other, WM_CLOSE, 0, 0);
    EXPECT_TRUE(
        world->Becomes([&] { return user32.GetWindowThreadProcessId(other, nullptr) == 0; }));
    EXPECT_FALSE(user32.SetForegroundWindow(other));
    EXPECT_FALSE(user32.ShowWindow(other, SW_RESTORE));
}

}  // namespace
}  // namespace corvane
