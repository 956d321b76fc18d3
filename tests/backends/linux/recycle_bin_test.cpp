// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/recycle_bin.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <future>

#include "platform/shell32.h"
#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

using namespace std::chrono_literals;

QProgressDialog* ProgressWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* progress = qobject_cast<QProgressDialog*>(window);
            progress && window->isVisible())
            return progress;
    return nullptr;
}

/// A trash with one letter in it, on a file system that answers when it is told to.
class RecycleBinTest : public ::testing::Test {
protected:
    RecycleBinTest() { letter = folder.Put("Trash/files/letter.txt"); }
    ~RecycleBinTest() override { LetAnswer(); }

    RecycleBin::FindPlaces SlowPlaces() {
        return [answer = answers.get_future().share(), places = Places()](const std::string&) {
            answer.wait();
            return places;
        };
    }
    std::optional<TrashPlaces> Places() const {
        return TrashPlaces{.home = folder / "Trash", .tops = {}, .person = ::geteuid()};
    }
    void LetAnswer() {
        if (!std::exchange(answered, true)) answers.set_value();
    }
    /// Does it among the messages as soon as the progress is seen.
    void OnceSeen(std::function<void(QProgressDialog&)> act) {
        QObject::connect(&look, &QTimer::timeout, &look, [this, act] {
            QProgressDialog* window = ProgressWindow();
            if (window == nullptr) return;
            look.stop();
            act(*window);
        });
        look.start(10ms);
    }
    [[nodiscard]] bool LetterIsThere() const { return std::filesystem::exists(letter); }

    TemporaryFolder folder;
    std::string letter;
    std::promise<void> answers;
    bool answered = false;
    QTimer look;
};

TEST_F(RecycleBinTest, QuicklyEmptiedItIsDoneBeforeAnyOtherMessageRuns) {
    RecycleBin bin([this](const std::string&) { return Places(); });
    bool ran = false;
    QTimer::singleShot(0, [&] { ran = true; });
    EXPECT_EQ(bin.Empty(0, "", SHERB_NOCONFIRMATION), kBinEmptied);
    EXPECT_FALSE(LetterIsThere());
    EXPECT_FALSE(ran);
    QApplication::processEvents();
}

TEST_F(RecycleBinTest, AnEmptyBinIsToldApart) {
    std::filesystem::remove(letter);
    RecycleBin bin([this](const std::string&) { return Places(); });
    EXPECT_EQ(bin.Empty(0, "", SHERB_NOCONFIRMATION), kBinWasEmpty);
}

TEST_F(RecycleBinTest, TheRootSaysWhichDriveAndThereMayBeNone) {
    std::string asked;
    RecycleBin bin([&](const std::string& root) {
        asked = root;
        return std::optional<TrashPlaces>();
    });
    EXPECT_EQ(bin.Empty(0, "Q:\\", SHERB_NOCONFIRMATION), kNoSuchDrive);
    EXPECT_EQ(asked, "Q:\\");
}

TEST_F(RecycleBinTest, WhatTakesLongShowsItsProgressAndMessagesRun) {
    RecycleBin bin(SlowPlaces());
    std::int32_t second_call = 0;
    OnceSeen([&](QProgressDialog& window) {
        EXPECT_FALSE(window.isModal());
        EXPECT_TRUE(window.testAttribute(Qt::WA_ShowWithoutActivating));
        second_call = bin.Empty(0, "", SHERB_NOCONFIRMATION);
        LetAnswer();
    });
    EXPECT_EQ(bin.Empty(0, "", SHERB_NOCONFIRMATION), kBinEmptied);
    EXPECT_EQ(second_call, kBinIsBeingEmptied);
    EXPECT_FALSE(LetterIsThere());
    EXPECT_EQ(ProgressWindow(), nullptr);
}

TEST_F(RecycleBinTest, ScreenReadersAreToldWhatTheBarShows) {
    RecycleBin bin(SlowPlaces());
    OnceSeen([&](QProgressDialog& window) {
        EXPECT_EQ(window.findChild<QProgressBar*>()->accessibleName(), "Emptied");
        LetAnswer();
    });
    EXPECT_EQ(bin.Empty(0, "", SHERB_NOCONFIRMATION), kBinEmptied);
}

TEST_F(RecycleBinTest, TheProgressWindowLiesOverAnOwnerThatIsSeen) {
    QWidget owner;
    owner.show();
    RecycleBin bin(SlowPlaces());
    OnceSeen([&](QProgressDialog& window) {
        EXPECT_EQ(window.windowHandle()->transientParent(), owner.windowHandle());
        LetAnswer();
    });
    bin.Empty(static_cast<HWND>(owner.winId()), "", SHERB_NOCONFIRMATION);
}

TEST_F(RecycleBinTest, CancelEndsItAndGivesUpAFileSystemThatDoesNotAnswer) {
    RecycleBin bin(SlowPlaces());
    OnceSeen([](QProgressDialog& window) { window.findChild<QPushButton*>()->click(); });
    EXPECT_EQ(bin.Empty(0, "", SHERB_NOCONFIRMATION), kBinCancelled);
    EXPECT_TRUE(LetterIsThere());
}

TEST_F(RecycleBinTest, WithoutTheFlagThePersonIsAsked) {
    RecycleBin bin([this](const std::string&) { return Places(); });
    const auto answer = [](QMessageBox::StandardButton button) {
        QTimer::singleShot(0, [button] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            question->button(button)->click();
        });
    };
    answer(QMessageBox::No);
    EXPECT_EQ(bin.Empty(0, "", 0), kBinCancelled);
    EXPECT_TRUE(LetterIsThere());
    answer(QMessageBox::Yes);
    EXPECT_EQ(bin.Empty(0, "", 0), kBinEmptied);
    EXPECT_FALSE(LetterIsThere());
}

}  // namespace
}  // namespace corvane::linux_desktop
