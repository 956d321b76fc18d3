// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/file_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <functional>

#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

const FileDialogRequest kProgram{.title = "Open exe file path",
                                 .filter = "All Files (*.*)|*.*|Executable Files (*.exe)|*.exe",
                                 .filter_index = 2,
                                 .flags = kOverwritePrompt + kPathMustExist + kNoReadOnlyReturn};

class FileDialogTest : public testing::Test {
protected:
    FileDialogTest() {
        // Applications as this test has installed them, and no others; no MIME types either.
        ::setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
        ::setenv("XDG_DATA_DIRS", (folder / "none").c_str(), 1);
        editor = folder.Put("data/applications/org.editor.desktop",
                            "[Desktop Entry]\nType=Application\nName=Text/Editor\nExec=edit\n");
    }

    /// What comes of the dialog in which a person does that.
    static std::optional<std::string> Ask(const std::function<void(QFileDialog&)>& act) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            act(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        return ChooseFile(kProgram, nullptr);
    }
    static void Open(QFileDialog& dialog, const std::string& file) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->setText(QString::fromStdString(file));
        QTest::keyClick(name, Qt::Key_Return);
    }
    static bool InView(const QFileDialog& dialog, const QString& name) {
        const auto* view = dialog.findChild<QListView*>("listView");
        const auto* model = view->model();
        for (int row = 0; row < model->rowCount(view->rootIndex()); ++row)
            if (model->index(row, 0, view->rootIndex()).data() == name) return true;
        return false;
    }
    /// Whether a person sees that file beside a program.
    bool Shows(const QString& filter, const std::string& file) {
        folder.PutProgram(std::filesystem::path(file).parent_path().filename() / "marker");
        bool shown = false;
        Ask([&](QFileDialog& dialog) {
            const QFileInfo info(QString::fromStdString(file));
            dialog.selectNameFilter(filter);
            emit dialog.filterSelected(filter);
            dialog.setDirectory(info.path());
            // The folder is read on a thread of its own, all of it before the first file is shown.
            EXPECT_TRUE(QTest::qWaitFor([&] { return InView(dialog, "marker"); }, 10'000));
            shown = InView(dialog, info.fileName());
        });
        return shown;
    }
    /// Qt looks for MIME types again only when some seconds have gone by.
    static void AwaitAbsenceOfMimeTypes(const std::string& file) {
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                return !QMimeDatabase().mimeTypeForFile(QString::fromStdString(file)).isValid();
            },
            20'000));
    }
    TemporaryFolder folder;
    std::string editor;
};

TEST_F(FileDialogTest, ProgramComesBackWithExeBehindItsName) {
    const std::string program = folder.PutProgram("Bin/Paint");
    EXPECT_EQ(Ask([&](QFileDialog& dialog) { Open(dialog, program); }), program + ".exe");
}

TEST_F(FileDialogTest, WhatIsNamedSoAlreadyIsNotNamedTwice) {
    const std::string program = folder.PutProgram("Bin/setup.EXE");
    EXPECT_EQ(Ask([&](QFileDialog& dialog) { Open(dialog, program); }), program);
}

TEST_F(FileDialogTest, FileThatCannotBeStartedKeepsItsName) {
    const std::string text = folder.Put("letter.txt");
    EXPECT_EQ(Ask([&](QFileDialog& dialog) { Open(dialog, text); }), text);
}

TEST_F(FileDialogTest, CancellingGivesNothing) {
    EXPECT_EQ(Ask([](QFileDialog& dialog) { dialog.reject(); }), std::nullopt);
}

TEST_F(FileDialogTest, InstalledApplicationIsThereByItsNameAndComesBackAsItsEntry) {
    EXPECT_EQ(Ask([](QFileDialog& dialog) {
                  EXPECT_EQ(dialog.directory().dirName(), "Applications");
                  Open(dialog, "Text\u2215Editor");
              }),
              editor + ".exe");
}

TEST_F(FileDialogTest, BeginsWithTheExecutableFilesUnderItsTitle) {
    Ask([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Open exe file path");
        EXPECT_EQ(dialog.selectedNameFilter(), "Executable Files");
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"All Files (*)", "Executable Files (*)"}));
    });
}

TEST_F(FileDialogTest, ExecutableFilesAreThoseThatCanBeStarted) {
    EXPECT_TRUE(Shows("Executable Files (*)", folder.PutProgram("a/program")));
    EXPECT_TRUE(Shows("Executable Files (*)", folder.Put("b/windows.exe")));
    EXPECT_TRUE(Shows("Executable Files (*)", folder.Put("c/entry.desktop")));
    EXPECT_FALSE(Shows("Executable Files (*)", folder.Put("d/letter.txt")));
    EXPECT_TRUE(Shows("All Files (*)", folder.Put("e/letter.txt")));
}

TEST_F(FileDialogTest, FilesAreShownWhereNoMimeTypesAreInstalled) {
    const std::string program = folder.PutProgram("a/program");
    AwaitAbsenceOfMimeTypes(program);
    Ask([&](QFileDialog& dialog) {
        dialog.setDirectory(QFileInfo(QString::fromStdString(program)).path());
        EXPECT_TRUE(QTest::qWaitFor([&] { return InView(dialog, "program"); }, 10'000));
        // One that comes later is not helped by the sorting of the whole folder.
        folder.PutProgram("a/later");
        EXPECT_TRUE(QTest::qWaitFor([&] { return InView(dialog, "later"); }, 10'000));
    });
}

TEST_F(FileDialogTest, FolderMustExist) {
    std::string warned;
    const auto file = Ask([&](QFileDialog& dialog) {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            warned = box->text().toStdString();
            box->accept();
        });
        Open(dialog, folder / "no such folder/program");
    });
    EXPECT_EQ(file, std::nullopt);
    EXPECT_NE(warned.find("does not exist"), std::string::npos);
}

TEST_F(FileDialogTest, WithoutAnyApplicationItBeginsWhereProgramsLie) {
    ::setenv("XDG_DATA_HOME", (folder / "none").c_str(), 1);
    Ask([](QFileDialog& dialog) { EXPECT_EQ(dialog.directory().path(), "/usr/bin"); });
}

}  // namespace
}  // namespace corvane::linux_desktop
