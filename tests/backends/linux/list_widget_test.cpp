// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/list_widget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <QTextEdit>
#include <array>
#include <utility>

#include "linux/windows/qt_toolkit.h"
#include "temporary_folder.h"

/// The list of the command help, and the mark of the word that is being read.
namespace corvane::linux_desktop {
namespace {

constexpr auto kControls = std::to_array<ControlDescription>({
    {.name = "Fruit",
     .kind = ControlKind::ListBox,
     .place = {0, 0, 1500, 3000},
     .tab_index = 0,
     .colours = ControlColours::WhiteOnBlack},
    {.name = "Board",
     .kind = ControlKind::MultilineTextBox,
     .place = {1500, 0, 3000, 1500},
     .tab_index = 1,
     .hide_selection = false},
});
constexpr WindowDescription kWindow{.name = "Shop",
                                    .caption = "Shop",
                                    .client_width = 4800,
                                    .client_height = 3000,
                                    .controls = kControls};

class ListWidgetTest : public testing::Test {
protected:
    ListWidgetTest() {
        window = toolkit.CreateWindow(kWindow, {});
        ListPeerEvents events;
        events.Selected = [this](std::int32_t index) {
            told += "selected " + std::to_string(index) + ";";
        };
        events.DblClick = [this] { told += "double click;"; };
        list = window->AddList(kControls[0], {"apple", "pear", "banana"}, std::move(events));
        board = window->AddText(kControls[1], {});
        window->Show();
        Widget<QWidget>("Fruit").window()->activateWindow();
        QCoreApplication::processEvents();
    }

    template <class Found>
    static Found& Widget(const char* name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = widget->findChild<Found*>(name); found && widget->isVisible())
                return *found;
        throw std::logic_error("there is no such widget");
    }
    static ListWidget& Fruit() { return dynamic_cast<ListWidget&>(Widget<QListWidget>("Fruit")); }
    static QPoint MiddleOf(int row) { return Fruit().visualItemRect(Fruit().item(row)).center(); }
    static QPoint BelowAllItems() {
        return {10, Fruit().visualItemRect(Fruit().item(Fruit().count() - 1)).bottom() + 20};
    }
    /// As a person does it: the click that comes first selects.
    static void DoubleClick(QPoint place, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(Fruit().viewport(), Qt::LeftButton, held, place);
        QTest::mouseDClick(Fruit().viewport(), Qt::LeftButton, held, place);
    }

    TemporaryFolder folder;
    QtToolkit toolkit{folder.path()};
    std::unique_ptr<IWindowPeer> window;
    std::unique_ptr<IListPeer> list;
    std::unique_ptr<ITextPeer> board;
    std::string told;
};

TEST_F(ListWidgetTest, ItemsAreShownInTheOrderGivenAndNoneIsSelected) {
    ASSERT_EQ(Fruit().count(), 3);
    EXPECT_EQ(Fruit().item(1)->text(), "pear");
    EXPECT_TRUE(Fruit().selectedItems().isEmpty());
}

TEST_F(ListWidgetTest, ADoubleClickTellsTheSelectionFirst) {
    DoubleClick(MiddleOf(1));
    EXPECT_EQ(told, "selected 1;double click;");
}

TEST_F(ListWidgetTest, ADoubleClickBelowTheItemsLeavesTheSelectionAlone) {
    DoubleClick(BelowAllItems());
    EXPECT_EQ(told, "double click;");
    told.clear();
    DoubleClick(MiddleOf(2));
    DoubleClick(BelowAllItems());
    EXPECT_EQ(told, "selected 2;double click;double click;");
    EXPECT_EQ(Fruit().selectedItems().size(), 1);
}

TEST_F(ListWidgetTest, ArrowKeysSelect) {
    QTest::mouseClick(Fruit().viewport(), Qt::LeftButton, {}, MiddleOf(0));
    QTest::keyClick(&Fruit(), Qt::Key_Down);
    QTest::keyClick(&Fruit(), Qt::Key_Down);
    QTest::keyClick(&Fruit(), Qt::Key_Up);
    EXPECT_EQ(told, "selected 0;selected 1;selected 2;selected 1;");
}

TEST_F(ListWidgetTest, CtrlDoesNotTakeTheSelectionAway) {
    QTest::mouseClick(Fruit().viewport(), Qt::LeftButton, {}, MiddleOf(0));
    QTest::mouseClick(Fruit().viewport(), Qt::LeftButton, Qt::ControlModifier, MiddleOf(0));
    EXPECT_EQ(told, "selected 0;");
}

TEST_F(ListWidgetTest, OtherButtonsOfTheMouseAreNoDoubleClick) {
    QTest::mouseDClick(Fruit().viewport(), Qt::RightButton, {}, MiddleOf(0));
    EXPECT_EQ(told.find("double click"), std::string::npos);
}

TEST_F(ListWidgetTest, TheListMayGoAwayInItsDoubleClick) {
    Fruit().DblClick = [] { delete &Fruit(); };
    QTest::mouseDClick(Fruit().viewport(), Qt::LeftButton, {}, MiddleOf(0));
    list->SetFocus();
}

TEST_F(ListWidgetTest, AMarkIsSeenWhileTheFocusIsElsewhere) {
    board->SetText("one two three");
    board->SetSelection(4, 3);
    auto& editor = Widget<QTextEdit>("Board");
    const QColor mark = editor.palette().color(QPalette::Active, QPalette::Highlight);
    const auto marked_pixels = [&] {
        QCoreApplication::processEvents();
        const QImage shown = editor.grab().toImage();
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x) count += shown.pixelColor(x, y) == mark ? 1 : 0;
        return count;
    };
    board->SetFocus();
    const int with_focus = marked_pixels();
    list->SetFocus();
    EXPECT_GT(with_focus, 50);
    EXPECT_GE(marked_pixels(), with_focus);  // a caret covers some of them
    board->SetSelection(13, 0);
    EXPECT_EQ(marked_pixels(), 0);
}

}  // namespace
}  // namespace corvane::linux_desktop
