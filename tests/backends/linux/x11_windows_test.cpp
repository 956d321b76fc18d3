// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_windows.h"

#include <gtest/gtest.h>

#include <QTest>
#include <algorithm>
#include <functional>
#include <string_view>
#include <vector>

#include "other_program.h"

/// What an X11 session makes of unusual windows and desktops. The suite named Managed needs a
/// window manager, the one named Bare needs none.
namespace corvane::linux_desktop {
namespace {

/// A window of a program that does with it what a test says.
class PlainWindow {
public:
    PlainWindow() {
        xcb_create_window(x.connection(), XCB_COPY_FROM_PARENT, id, x.root(), 40, 50, 200, 100, 1,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    }
    void Write(const char* property, const char* type, std::string_view text) const {
        xcb_change_property(x.connection(), XCB_PROP_MODE_REPLACE, id, x.Atom(property),
                            x.Atom(type), 8, static_cast<std::uint32_t>(text.size()), text.data());
        x.Sync();
    }
    void Write(xcb_window_t window, const char* property, const char* type,
               std::uint32_t number) const {
        xcb_change_property(x.connection(), XCB_PROP_MODE_REPLACE, window, x.Atom(property),
                            x.Atom(type), 32, 1, &number);
        x.Sync();
    }
    void Show() const {
        xcb_map_window(x.connection(), id);
        x.Sync();
    }
    [[nodiscard]] std::vector<int> Place() const {
        const auto geometry =
            Answer<xcb_get_geometry_reply>(x, xcb_get_geometry(x.connection(), id));
        return {geometry->x, geometry->y, geometry->width, geometry->height};
    }

    X11Connection x;
    xcb_window_t id = xcb_generate_id(x.connection());
};

class X11Session : public testing::Test {
protected:
    std::string Title() { return windows.Describe(plain.id)->title; }
    static bool WaitFor(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, kBound);
    }

    X11Windows windows{nullptr};
    PlainWindow plain;
};
using ManagedX11Session = X11Session;
using BareX11Session = X11Session;

TEST_F(X11Session, AWindowThatTellsNothingIsDescribedAllTheSame) {
    plain.x.Sync();
    const auto facts = windows.Describe(plain.id);
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->title, "");
    EXPECT_EQ(facts->application, "");
    EXPECT_EQ(facts->process, std::nullopt);
    EXPECT_FALSE(facts->minimised);
}

TEST_F(X11Session, TheNewerTitleCountsBeforeTheOlder) {
    plain.Write("WM_NAME", "STRING", "Caf\xE9");
    EXPECT_EQ(Title(), "Café");
    plain.Write("WM_NAME", "UTF8_STRING", "Kávé");
    EXPECT_EQ(Title(), "Kávé");
    plain.Write("_NET_WM_NAME", "UTF8_STRING", "カフェ");
    EXPECT_EQ(Title(), "カフェ");
    plain.Write("_NET_WM_NAME", "UTF8_STRING", "");
    EXPECT_EQ(Title(), "");
}

TEST_F(X11Session, TheApplicationIsTheSecondOfItsNames) {
    plain.Write("WM_CLASS", "STRING", std::string_view("letter-2\0Editor\0", 16));
    EXPECT_EQ(windows.Describe(plain.id)->application, "Editor");
    plain.Write("WM_CLASS", "STRING", "unusual");
    EXPECT_EQ(windows.Describe(plain.id)->application, "unusual");
}

TEST_F(X11Session, TheRootIsNoWindow) {
    EXPECT_EQ(windows.Describe(plain.x.root()), std::nullopt);
    EXPECT_EQ(windows.Close(plain.x.root()), SessionAnswer::Denied);
}

TEST_F(X11Session, AllWindowsAreListed) {
    plain.Show();
    EXPECT_TRUE(WaitFor([&] {
        const auto list = windows.List();
        return std::ranges::find(list, plain.id) != list.end();
    }));
}

TEST_F(ManagedX11Session, AWindowOnAnotherVirtualDesktopIsBroughtToThePerson) {
    QProcess::execute("xdotool", {"set_num_desktops", "2"});
    const OtherProgram terminal(windows, Terminal("far away"));
    ASSERT_TRUE(WaitFor([&] { return windows.Active() == terminal.window(); }));
    QProcess::execute("xdotool",
                      {"set_desktop_for_window", QString::number(terminal.window()), "1"});
    ASSERT_TRUE(WaitFor([&] { return windows.Active() != terminal.window(); }));
    EXPECT_FALSE(windows.Describe(terminal.window())->minimised);
    EXPECT_EQ(windows.Activate(terminal.window()), SessionAnswer::Done);
    EXPECT_EQ(windows.Active(), terminal.window());
    const auto list = windows.List();
    EXPECT_NE(std::ranges::find(list, terminal.window()), list.end());
    QProcess::execute("xdotool", {"set_desktop", "0"});
}

TEST_F(ManagedX11Session, TheDesktopItselfIsNoWindowInFront) {
    plain.Write(plain.id, "_NET_WM_WINDOW_TYPE", "ATOM",
                plain.x.Atom("_NET_WM_WINDOW_TYPE_DESKTOP"));
    plain.Show();
    // The manager may let it have the keyboard; it is not closed or minimised by a word.
    windows.Activate(plain.id);
    EXPECT_NE(windows.Active(), plain.id);
}

TEST_F(ManagedX11Session, AWindowThatWasWithdrawnOrMinimisedIsInFrontNoMore) {
    plain.Show();
    windows.Activate(plain.id);
    ASSERT_EQ(windows.Active(), plain.id);
    windows.Minimise(plain.id);
    EXPECT_EQ(windows.Active(), 0U);
    windows.Activate(plain.id);
    ASSERT_EQ(windows.Active(), plain.id);
    xcb_unmap_window(plain.x.connection(), plain.id);
    plain.x.Sync();
    EXPECT_TRUE(WaitFor([&] { return windows.Active() == 0; }));
}

TEST_F(BareX11Session, TheMarkOfAManagerThatCrashedMeansNothing) {
    plain.Write(plain.x.root(), "_NET_SUPPORTING_WM_CHECK", "WINDOW", 0x7FFFFF);
    plain.Show();
    EXPECT_EQ(windows.Activate(plain.id), SessionAnswer::Done);
    EXPECT_EQ(windows.Active(), plain.id);
    xcb_delete_property(plain.x.connection(), plain.x.root(),
                        plain.x.Atom("_NET_SUPPORTING_WM_CHECK"));
    plain.x.Sync();
}

TEST_F(BareX11Session, TheWindowThatHasTheKeyboardIsInFront) {
    xcb_set_input_focus(plain.x.connection(), XCB_INPUT_FOCUS_NONE, XCB_INPUT_FOCUS_NONE, 0);
    plain.Show();
    EXPECT_EQ(windows.Active(), 0U);
    EXPECT_EQ(windows.Activate(plain.id), SessionAnswer::Done);
    EXPECT_EQ(windows.Active(), plain.id);
    // Also while a part of it has the keyboard.
    const xcb_window_t part = xcb_generate_id(plain.x.connection());
    xcb_create_window(plain.x.connection(), XCB_COPY_FROM_PARENT, part, plain.id, 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(plain.x.connection(), part);
    xcb_set_input_focus(plain.x.connection(), XCB_INPUT_FOCUS_PARENT, part, 0);
    plain.x.Sync();
    EXPECT_EQ(windows.Active(), plain.id);
}

TEST_F(BareX11Session, WhereTheKeyboardFollowsThePointerTheWindowBelowItIsInFront) {
    plain.Show();
    xcb_set_input_focus(plain.x.connection(), XCB_INPUT_FOCUS_NONE, XCB_INPUT_FOCUS_POINTER_ROOT,
                        0);
    xcb_warp_pointer(plain.x.connection(), XCB_WINDOW_NONE, plain.x.root(), 0, 0, 0, 0, 60, 70);
    plain.x.Sync();
    EXPECT_EQ(windows.Active(), plain.id);
    xcb_warp_pointer(plain.x.connection(), XCB_WINDOW_NONE, plain.x.root(), 0, 0, 0, 0, 1200, 1000);
    plain.x.Sync();
    EXPECT_EQ(windows.Active(), 0U);
}

TEST_F(BareX11Session, MaximisedItFillsTheScreenAndGoesBackToItsPlace) {
    plain.Show();
    for (int times = 0; times < 2; ++times)
        EXPECT_EQ(windows.Maximise(plain.id), SessionAnswer::Done);
    EXPECT_EQ(plain.Place(), (std::vector{0, 0, 1278, 1022}));  // and a border of one pixel
    EXPECT_EQ(windows.NormalSize(plain.id), SessionAnswer::Done);
    EXPECT_EQ(plain.Place(), (std::vector{40, 50, 200, 100}));
    EXPECT_EQ(windows.NormalSize(plain.id), SessionAnswer::Done);
    EXPECT_EQ(plain.Place(), (std::vector{40, 50, 200, 100}));
}

TEST_F(BareX11Session, NothingIsMinimisedSinceNobodyWouldShowAWayBack) {
    plain.Show();
    EXPECT_EQ(windows.Minimise(plain.id), SessionAnswer::Unsupported);
    EXPECT_FALSE(windows.Describe(plain.id)->minimised);
}

TEST_F(BareX11Session, AProgramThatCannotBeAskedIsNotClosed) {
    plain.Show();
    EXPECT_EQ(windows.Close(plain.id), SessionAnswer::Unsupported);
    EXPECT_TRUE(windows.Describe(plain.id));
}

TEST_F(BareX11Session, AWindowThatNobodySeesIsNotBroughtToTheFront) {
    plain.x.Sync();
    EXPECT_EQ(windows.Activate(plain.id), SessionAnswer::Denied);
}

}  // namespace
}  // namespace corvane::linux_desktop
