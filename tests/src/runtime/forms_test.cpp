// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <array>

#include "runtime/forms/controls.h"
#include "runtime/forms/form.h"
#include "runtime/forms/text_box.h"
#include "simulated/simulated_desktop.h"
#include "support/expect_error.h"

namespace corvane::forms {
namespace {

constexpr std::array kControls{ControlDescription{
    .name = "Note", .kind = ControlKind::TextBox, .place = {0, 0, 100, 100}, .text = "first"}};
constexpr WindowDescription kNotes{.name = "Notes", .caption = "Notes", .controls = kControls};
constexpr MenuDescription kMnuDone{.name = "mnuDone", .caption = "&Done"};

class Notes final : public Form {
public:
    Notes(IWindowToolkit& toolkit, MessageLoop& loop) : Form(toolkit, loop, kNotes) {}
    TextBox Note{*this, "Note"};
    Menu mnuDone{*this, kMnuDone};
};

class FormsTest : public ::testing::Test {
protected:
    [[nodiscard]] const simulated::ShownText& Shown() const {
        return desktop.windows.Window("Notes").texts.at("Note");
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    int loads = 0;
    Lazy<Notes> notes{[this] {
        auto form = std::make_shared<Notes>(desktop.windows, loop);
        form->Load = [this] { ++loads; };
        return form;
    }};
};

TEST_F(FormsTest, AWindowIsLoadedByTheFirstUseOfAMemberAndOnlyOnce) {
    EXPECT_FALSE(notes.Loaded());
    EXPECT_EQ(notes->Note.Text(), "first");
    EXPECT_TRUE(notes.Loaded());
    EXPECT_FALSE(desktop.windows.Window("Notes").visible);
    notes->Show();
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(desktop.windows.Window("Notes").visible);
}

TEST_F(FormsTest, AMemberUsedInsideTheLoadDoesNotLoadAgain) {
    Lazy<Notes> eager([&] {
        auto form = std::make_shared<Notes>(desktop.windows, loop);
        form->Load = [&] {
            ++loads;
            eager->Note.SetText("from the load");
        };
        return form;
    });
    eager->Show();
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(eager->Note.Text(), "from the load");
}

TEST_F(FormsTest, AWrittenTextIsShownAndTheCaretGoesToItsStart) {
    notes->Note.SetText("second");
    EXPECT_EQ(Shown().text, "second");
    EXPECT_EQ(notes->Note.SelStart(), 0);
}

TEST_F(FormsTest, ChangeIsRaisedOnlyWhenTheTextHasBecomeAnother) {
    int changes = 0;
    notes->Note.Change = [&] { ++changes; };
    notes->Note.SetText("first");
    EXPECT_EQ(changes, 0);
    notes->Note.SetText("second");
    EXPECT_EQ(changes, 1);
}

TEST_F(FormsTest, APersonsEditIsThereBeforeItsChangeEvent) {
    std::string seen;
    notes->Note.Change = [&] { seen = notes->Note.Text(); };
    desktop.windows.Type("Notes", "Note", " aid");
    EXPECT_EQ(seen, "first aid");
    EXPECT_EQ(notes->Note.SelStart(), 9);
}

TEST_F(FormsTest, AMovedCaretIsNoChange) {
    int changes = 0;
    notes->Note.Change = [&] { ++changes; };
    desktop.windows.Type("Notes", "Note", "");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(notes->Note.SelStart(), 5);
}

TEST_F(FormsTest, ACaretBeyondTheEndStandsAtTheEndAndANegativeOneIsRefused) {
    notes->Note.SetSelStart(99);
    EXPECT_EQ(notes->Note.SelStart(), 5);
    EXPECT_EQ(Shown().start, 5);
    EXPECT_ERROR(kInvalidPropertyValue, notes->Note.SetSelStart(-1));
    EXPECT_EQ(notes->Note.SelStart(), 5);
}

TEST_F(FormsTest, AMarkBeginsAtTheCaretAndReachesNoFartherThanTheText) {
    notes->Note.SetSelStart(2);
    notes->Note.SetSelLength(2);
    EXPECT_EQ(notes->Note.SelLength(), 2);
    EXPECT_EQ(Shown().start, 2);
    EXPECT_EQ(Shown().length, 2);
    notes->Note.SetSelLength(99);
    EXPECT_EQ(notes->Note.SelLength(), 3);
    EXPECT_EQ(Shown().length, 3);
    EXPECT_ERROR(kInvalidPropertyValue, (notes->Note.SetSelLength(-1), 0));
    EXPECT_EQ(notes->Note.SelLength(), 3);
}

TEST_F(FormsTest, ANewCaretOrTextEndsTheMark) {
    notes->Note.SetSelLength(2);
    notes->Note.SetSelStart(1);
    EXPECT_EQ(notes->Note.SelLength(), 0);
    notes->Note.SetSelLength(2);
    notes->Note.SetText("second");
    EXPECT_EQ(notes->Note.SelLength(), 0);
    EXPECT_EQ(Shown().length, 0);
}

TEST_F(FormsTest, ATextIsPutInThePlaceOfTheMarkAndTheCaretStandsBehindIt) {
    int changes = 0;
    notes->Note.Change = [&] { ++changes; };
    notes->Note.SetSelStart(1);
    notes->Note.SetSelLength(3);
    notes->Note.SetSelText("üssiges");
    EXPECT_EQ(notes->Note.Text(), "füssigest");
    EXPECT_EQ(notes->Note.SelStart(), 8);
    EXPECT_EQ(notes->Note.SelLength(), 0);
    EXPECT_EQ(Shown().text, "füssigest");
    EXPECT_EQ(Shown().start, 8);
    EXPECT_EQ(changes, 1);
    notes->Note.SetSelText("!");
    EXPECT_EQ(Shown().text, "füssiges!t");
    notes->Note.SetSelText("");
    EXPECT_EQ(changes, 2);
}

TEST_F(FormsTest, ATextTellsOfTheFocusThatItTakesAndLoses) {
    std::string told;
    notes->Note.GotFocus = [&] { told += "got "; };
    notes->Note.LostFocus = [&] { told += "lost "; };
    notes->Show();
    notes->Note.SetFocus();
    desktop.windows.Focus("Notes", "elsewhere");
    EXPECT_EQ(told, "got lost ");
}

TEST_F(FormsTest, EachTextIsAControlOfItsOwn) {
    EXPECT_NE(notes->Note.hWnd(), 0U);
    EXPECT_NE(notes->Note.hWnd(), notes->hWnd());
}

TEST_F(FormsTest, TheFirstShowingRaisesResizeAndLaterOnesDoNot) {
    int resizes = 0;
    notes->Resize = [&] {
        ++resizes;
        EXPECT_FALSE(desktop.windows.Window("Notes").visible);
    };
    notes->Show();
    notes->Hide();
    notes->Resize = [&] { ++resizes; };
    notes->Show();
    EXPECT_EQ(resizes, 1);
    desktop.windows.Resize("Notes", 3000, 1500);
    EXPECT_EQ(resizes, 2);
    EXPECT_EQ(notes->ScaleWidth(), 3000.0F);
    EXPECT_EQ(notes->Width(), 3120.0F);
    EXPECT_EQ(notes->Height(), 1905.0F);
}

TEST_F(FormsTest, AWindowThatIsLetGoWhenItIsClosedIsCreatedAndLoadedAgain) {
    std::string order;
    notes->Unload = [&] { order += "unload "; };
    notes->Closed = [&] {
        order += desktop.windows.Window("Notes").visible ? "visible " : "hidden ";
        notes.LetGo();
    };
    notes->Show();
    notes->Note.SetText("second");
    const HWND handle = notes->hWnd();
    desktop.windows.CloseByFrame("Notes");
    EXPECT_EQ(order, "unload hidden ");
    EXPECT_FALSE(notes.Loaded());
    EXPECT_EQ(notes->Note.Text(), "first");
    EXPECT_EQ(loads, 2);
    EXPECT_NE(notes->hWnd(), handle);
}

TEST_F(FormsTest, AModalWindowMayBeLetGoWhileItStands) {
    notes->Closed = [&] { notes.LetGo(); };
    desktop.queue.PostAfter(std::chrono::seconds(1),
                            [&] { desktop.windows.CloseByFrame("Notes"); });
    notes->ShowModal();
    EXPECT_FALSE(notes.Loaded());
}

TEST_F(FormsTest, AnErrorInAPersonsEventEndsTheProcess) {
    notes->mnuDone.Click = [] { throw RuntimeError(kFileNotFound, "File not found"); };
    desktop.Drive([&] { desktop.windows.ClickMenu("Notes", "mnuDone"); });
    EXPECT_TRUE(desktop.runtime.Ended());
}

TEST_F(FormsTest, AMenuWithoutAHandlerDoesNothing) {
    notes->Show();
    desktop.Drive([&] { desktop.windows.ClickMenu("Notes", "mnuDone"); });
    EXPECT_FALSE(desktop.runtime.Ended());
}

TEST_F(FormsTest, AControlThatIsNotInTheLayoutIsAnError) {
    EXPECT_ERROR(kSubscriptOutOfRange, notes->Describe("Noet"));
}

}  // namespace
}  // namespace corvane::forms
