// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <array>
#include <stdexcept>
#include <utility>
#include <vector>

#include "linux/windows/qt_toolkit.h"
#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

constexpr auto kControls = std::to_array<ControlDescription>({
    {.name = "Level", .kind = ControlKind::ProgressBar, .place = {0, 0, 1500, 300}},
    {.name = "Words", .kind = ControlKind::Label, .place = {0, 450, 300, 195}, .text = "a"},
    {.name = "Tray", .kind = ControlKind::PictureBox, .place = {0, 750, 540, 540}, .text = "red"},
    {.name = "Face", .kind = ControlKind::Image, .place = {750, 750, 600, 300}, .text = "red"},
    {.name = "Read",
     .kind = ControlKind::CommandButton,
     .place = {0, 1500, 900, 300},
     .tab_index = 0,
     .text = "&Read"},
    {.name = "Hint",
     .kind = ControlKind::Label,
     .place = {0, 2400, 3240, 210},
     .text = "Say so",
     .colours = ControlColours::RedOnYellow,
     .font_family = "Arial",
     .bold = true},
    {.name = "Board", .kind = ControlKind::TextBox, .place = {0, 1950, 900, 285}, .tab_index = 1},
});

constexpr WindowDescription kWindow{.name = "Peers",
                                    .caption = "Peers",
                                    .client_width = 4800,
                                    .client_height = 3000,
                                    .controls = kControls};

class ControlPeers : public testing::Test {
protected:
    ControlPeers() {
        SavePicture("red-16", Qt::red, 16);
        SavePicture("red-32", Qt::red, 32);
        SavePicture("redder-32", Qt::green, 32);
        window = toolkit.CreateWindow(kWindow, {});
        level = window->AddRange(kControls[0]);
        words = window->AddLabel(kControls[1]);
        tray = window->AddPicture(kControls[2]);
        window->AddFixture(kControls[3]);
        ButtonPeerEvents events;
        events.Click = [this] { ++clicks; };
        events.KeyDown = [this](std::int16_t code, std::int16_t shift) {
            keys.emplace_back(code, shift);
            if (key_down) key_down();
        };
        button = window->AddButton(kControls[4], std::move(events));
        window->AddFixture(kControls[5]);
        board = window->AddText(kControls[6], {});
        window->Show();
        frame().activateWindow();
        QCoreApplication::processEvents();
    }

    void SavePicture(const std::string& name, QColor colour, int side) const {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(colour);
        image.save(QString::fromStdString(folder / (name + ".png")));
    }
    static QMainWindow& frame() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<QMainWindow*>(widget); found && found->isVisible())
                return *found;
        throw std::logic_error("there is no window");
    }
    template <class Widget = QWidget>
    static Widget& Find(const char* name) {
        return *frame().findChild<Widget*>(name);
    }
    static QColor MiddleOf(const char* name) {
        return Find(name).grab().toImage().pixelColor(Find(name).rect().center());
    }

    using Key = std::pair<int, int>;

    TemporaryFolder folder;
    QtToolkit toolkit{folder.path()};
    std::unique_ptr<IWindowPeer> window;
    std::unique_ptr<IRangePeer> level;
    std::unique_ptr<ILabelPeer> words;
    std::unique_ptr<IPicturePeer> tray;
    std::unique_ptr<IButtonPeer> button;
    std::unique_ptr<ITextPeer> board;
    int clicks = 0;
    std::vector<Key> keys;
    std::function<void()> key_down;
};

TEST_F(ControlPeers, LevelIsShown) {
    level->SetValue(40);
    EXPECT_EQ(Find<QProgressBar>("Level").value(), 40);
}

TEST_F(ControlPeers, LabelGrowsWithItsCaption) {
    words->SetCaption("words that need more room");
    auto& label = Find<QLabel>("Words");
    EXPECT_EQ(label.text(), "words that need more room");
    EXPECT_GE(label.width(), label.sizeHint().width());
}

TEST_F(ControlPeers, LabelHasItsFontAndItsColours) {
    const auto& label = Find<QLabel>("Hint");
    EXPECT_TRUE(label.font().bold());
    EXPECT_EQ(label.font().pixelSize(), 11);
    EXPECT_FALSE(Find<QLabel>("Words").font().bold());
    const QImage shown = Find("Hint").grab().toImage();
    EXPECT_EQ(shown.pixelColor(shown.width() - 1, 1), QColor(Qt::yellow));
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(Qt::red));
}

TEST_F(ControlPeers, PictureIsFoundByItsWholeName) {
    EXPECT_EQ(MiddleOf("Tray"), QColor(Qt::red));
    tray->SetPicture("redder");
    EXPECT_EQ(MiddleOf("Tray"), QColor(Qt::green));
}

TEST_F(ControlPeers, MissingPictureShowsNothing) {
    const QColor nothing = frame().palette().color(QPalette::Window);
    tray->SetPicture("no such picture");
    EXPECT_EQ(MiddleOf("Tray"), nothing);
    tray->SetPicture("red");
    tray->SetPicture("");
    EXPECT_EQ(MiddleOf("Tray"), nothing);
}

TEST_F(ControlPeers, ImageIsStretchedToItsPlace) {
    const QImage shown = Find("Face").grab().toImage();
    EXPECT_EQ(shown.size(), QSize(40, 20));
    EXPECT_EQ(shown.pixelColor(1, 1), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(38, 18), QColor(Qt::red));
}

TEST_F(ControlPeers, HiddenButtonIsNotThere) {
    button->SetVisible(false);
    EXPECT_FALSE(Find("Read").isVisible());
    button->SetVisible(true);
    EXPECT_TRUE(Find("Read").isVisible());
}

TEST_F(ControlPeers, MouseSpaceAndEnterClickAButton) {
    QTest::mouseClick(&Find("Read"), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&Find("Read"), Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
    QTest::keyClick(&Find("Read"), Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(keys, (std::vector<Key>{{32, 0}, {13, 0}}));
}

TEST_F(ControlPeers, ButtonWhoseFocusWentAwayTakesNoPartInTheKey) {
    key_down = [this] { board->SetFocus(); };
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        button->SetFocus();
        QTest::keyClick(&Find("Read"), key);
        EXPECT_EQ(frame().focusWidget(), &Find("Board"));
    }
    EXPECT_EQ(keys.size(), 2U);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ControlPeers, ButtonMayGoAwayInItsKey) {
    key_down = [this] { delete &Find("Read"); };
    QTest::keyClick(&Find("Read"), Qt::Key_Space);
    EXPECT_EQ(clicks, 0);
    button->SetFocus();
}

TEST_F(ControlPeers, TabMovesTheFocusAndIsNoKeyOfTheButton) {
    button->SetFocus();
    QTest::keyClick(&Find("Read"), Qt::Key_Tab);
    EXPECT_EQ(frame().focusWidget(), &Find("Board"));
    EXPECT_TRUE(keys.empty());
}

TEST_F(ControlPeers, AccessKeyClicksAndGivesTheFocus) {
    board->SetFocus();
    QTest::keyClick(&frame(), Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return clicks == 1; }, 2000));
    EXPECT_EQ(frame().focusWidget(), &Find("Read"));
    EXPECT_TRUE(keys.empty());
}

}  // namespace
}  // namespace corvane::linux_desktop
