// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
// The pad's text on paper: through the print dialog and the print server to the file that comes
// out.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QPrintDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>

#include "dictation/form5.h"
#include "linux/linux_runtime.h"
#include "linux/printing/printer.h"
#include "linux/qt_message_queue.h"
#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"
#include "runtime/message_loop.h"
#include "runtime/text.h"
#include "support/print_server.h"
#include "support/small_disk.h"
#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

using corvane::testing::PagesOf;
using corvane::testing::PlaceOnPage;
using corvane::testing::Printed;
using corvane::testing::PrintServer;

std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<std::string> WordsOf(const std::vector<std::string>& pages) {
    std::string text;
    for (const std::string& page : pages) text += page + "\n";
    return WordsOf(text);
}

/// "line 1", "line 2" and so on, without a line break behind the last one.
std::string Lines(std::size_t number) {
    std::string text;
    for (std::size_t i = 1; i <= number; ++i)
        text += (i == 1 ? "" : "\r\n") + std::string("line ") + std::to_string(i);
    return text;
}

/// Several thousand different words, in paragraphs of different lengths.
std::string LongText() {
    std::string text;
    for (int i = 1; i <= 4000; ++i) {
        text += "word" + std::to_string(i) + " ";
        if (i % 700 == 0 || i % 90 == 0) text += "\r\n";
    }
    return text;
}

class PadPrinting : public ::testing::Test {
protected:
    using Answer = std::function<void(QPrintDialog& dialog)>;

    static void Cancel(QPrintDialog& dialog) { dialog.reject(); }
    static void Confirm(QPrintDialog& dialog) {
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text().remove(u'&') == "Print") return button->click();
        FAIL() << "there is no such button";
    }

    void PrintPage(const Answer& answer = Cancel) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            answer(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        pad->Command4_Click();
    }
    /// The pages of the one job that came out.
    [[nodiscard]] static std::vector<std::string> OnlyJob(const PrintServer& server) {
        const auto jobs = server.Jobs();
        EXPECT_EQ(jobs.size(), 1U);
        return jobs.empty() ? std::vector<std::string>() : PagesOf(jobs.front());
    }
    [[nodiscard]] std::size_t LinesOnAPage(const PrintServer& server) {
        pad->txtSpeech.SetText(Lines(200));
        PrintPage();
        return WordsOf(PagesOf(server.Jobs().back()).front()).size() / 2;
    }
    [[nodiscard]] std::size_t PagesOfLines(const PrintServer& server, const std::string& lines) {
        pad->txtSpeech.SetText(lines);
        PrintPage();
        return PagesOf(server.Jobs().back()).size();
    }

    QtMessageQueue messages;
    LinuxRuntime runtime{nullptr};
    MessageLoop loop{messages, runtime};
    QtToolkit toolkit{"no pictures"};
    User32 user32{MakeSessionWindows(), toolkit.Controls(), toolkit.Gdi32()};
    Printer printer{toolkit.Gdi32(), toolkit.ChosenPrinter()};
    RichTextPrinter text_printer{printer, toolkit.Gdi32(), user32};
    bool PadActive = false;
    std::shared_ptr<Form5> pad = std::make_shared<Form5>(toolkit, loop, text_printer, PadActive);
};

TEST_F(PadPrinting, EmptyPadPrintsOnePage) {
    const PrintServer server;
    PrintPage();
    EXPECT_EQ(OnlyJob(server).size(), 1U);
}

TEST_F(PadPrinting, WholeTextComesOutInItsOrder) {
    const PrintServer server;
    pad->txtSpeech.SetText(LongText());
    PrintPage();
    const auto pages = OnlyJob(server);
    EXPECT_GT(pages.size(), 3U);
    EXPECT_EQ(WordsOf(pages), WordsOf(LongText()));
}

TEST_F(PadPrinting, MarginsAreOneInchFromThePapersEdges) {
    const PrintServer server;
    pad->txtSpeech.SetText(LongText());
    PrintPage();
    const std::string job = server.Jobs().at(0);
    for (const int page : {1, 2}) {
        const Printed text = PlaceOnPage(job, page);
        EXPECT_NEAR(text.left, 72, 0.1);
        EXPECT_NEAR(text.top, 72, 0.1);
        EXPECT_LE(text.right, text.paper_width - 72);
        EXPECT_GT(text.right, text.paper_width - 72 - 40);  // a word more would not fit
        EXPECT_LE(text.bottom, text.paper_height - 72);
        EXPECT_GT(text.bottom, text.paper_height - 72 - 12);  // nor a line more
    }
}

TEST_F(PadPrinting, TextOfExactlyTwoPagesHasNoThird) {
    const PrintServer server;
    const std::size_t lines = LinesOnAPage(server);
    EXPECT_EQ(PagesOfLines(server, Lines(lines)), 1U);
    EXPECT_EQ(PagesOfLines(server, Lines(2 * lines)), 2U);
    EXPECT_EQ(PagesOfLines(server, Lines(2 * lines) + "\r\n"), 2U);
    EXPECT_EQ(PagesOfLines(server, Lines(2 * lines + 1)), 3U);
}

TEST_F(PadPrinting, SelectionStillPrintsTheWholeText) {
    const PrintServer server;
    pad->txtSpeech.SetText("one two three");
    pad->txtSpeech.SetSelStart(4);
    pad->txtSpeech.SetSelLength(3);
    PrintPage([](QPrintDialog& dialog) {
        EXPECT_TRUE(dialog.testOption(QAbstractPrintDialog::PrintSelection));
        EXPECT_EQ(dialog.printRange(), QAbstractPrintDialog::Selection);
        Confirm(dialog);
    });
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("one two three"));
}

TEST_F(PadPrinting, WithoutASelectionAllPagesAreOfferedAndNoNumbers) {
    const PrintServer server;
    pad->txtSpeech.SetText("one two three");
    PrintPage([](QPrintDialog& dialog) {
        EXPECT_FALSE(dialog.testOption(QAbstractPrintDialog::PrintSelection));
        EXPECT_EQ(dialog.printRange(), QAbstractPrintDialog::AllPages);
        for (const char* name : {"printRange", "from", "to", "pagesRadioButton", "pagesLineEdit"}) {
            const auto* choice = dialog.findChild<QWidget*>(name);
            EXPECT_FALSE(choice != nullptr && choice->isVisibleTo(&dialog)) << name;
        }
        Cancel(dialog);
    });
}

TEST_F(PadPrinting, ChoiceOfPagesHasNoEffectAndTheNumberOfCopiesHas) {
    const PrintServer server;
    pad->txtSpeech.SetText("one two three");
    PrintPage([](QPrintDialog& dialog) {
        dialog.findChild<QComboBox*>("pageSetCombo")->setCurrentIndex(2);
        dialog.findChild<QSpinBox*>("copies")->setValue(3);
        Confirm(dialog);
    });
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("one two three"));
    EXPECT_EQ(server.Option("page-set"), std::nullopt);
    EXPECT_EQ(server.Option("copies"), std::string("\0\0\0\3", 4));
}

TEST_F(PadPrinting, CancelledDialogShowsWhatItPrintsWith) {
    const PrintServer server;
    pad->txtSpeech.SetText("one two three");
    PrintPage([](QPrintDialog& dialog) {
        dialog.findChild<QSpinBox*>("copies")->setValue(3);
        Confirm(dialog);
    });
    PrintPage([](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QSpinBox*>("copies")->value(), 3);
        Cancel(dialog);
    });
    EXPECT_EQ(server.Option("copies"), std::string("\0\0\0\3", 4));
}

TEST_F(PadPrinting, CancelledDialogStillPrints) {
    const PrintServer server;
    pad->txtSpeech.SetText("one two three");
    PrintPage(Cancel);
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("one two three"));
}

TEST_F(PadPrinting, LettersOfAnyLanguageComeOut) {
    const PrintServer server;
    pad->txtSpeech.SetText("na\u00EFve \u20AC 5\r\n\u0416\u0443\u043A");
    PrintPage();
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("na\u00EFve \u20AC 5 \u0416\u0443\u043A"));
}

TEST_F(PadPrinting, TextPutInAtTheCaretIsPrinted) {
    const PrintServer server;
    pad->txtSpeech.SetText("dictated ");
    pad->txtSpeech.SetSelStart(Len(pad->txtSpeech.Text()));
    pad->txtSpeech.SetSelText("words ");
    EXPECT_EQ(pad->txtSpeech.Text(), "dictated words ");
    PrintPage();
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("dictated words"));
}

TEST_F(PadPrinting, AJobThatHasNoRoomOnItsWayIsAbandonedAndTheNextComesOut) {
    const corvane::testing::SmallDisk disk;
    if (!disk.IsThere()) GTEST_SKIP() << "no file system may be mounted here";
    const PrintServer server;
    pad->txtSpeech.SetText(LongText());
    disk.Fill();
    setenv("TMPDIR", (disk / "").c_str(), 1);
    PrintPage();
    unsetenv("TMPDIR");
    EXPECT_EQ(server.Jobs(), std::vector<std::string>());
    pad->txtSpeech.SetText("one two three");
    PrintPage();
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("one two three"));
}

TEST_F(PadPrinting, WithoutAPrinterNothingComesOutAnywhere) {
    const PrintServer server(PrintServer::Printers::None);
    const TemporaryFolder home;
    ::setenv("HOME", home.path().c_str(), 1);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(home.path());
    pad->txtSpeech.SetText("one two three");
    PrintPage();
    EXPECT_TRUE(server.Jobs().empty());
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
    std::filesystem::current_path(before);
}

TEST_F(PadPrinting, WithoutAPrintServerNothingHappens) {
    pad->txtSpeech.SetText("one two three");
    PrintPage();
    EXPECT_EQ(printer.hDC(), 0U);
}

TEST_F(PadPrinting, PrintingWorksAgainOnceAPrinterIsThere) {
    pad->txtSpeech.SetText("one two three");
    PrintPage();
    const PrintServer server;
    PrintPage();
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("one two three"));
}

TEST_F(PadPrinting, FileThatAPersonChoosesIsWrittenOnce) {
    const PrintServer server;
    const TemporaryFolder folder;
    pad->txtSpeech.SetText("to a file");
    PrintPage([&](QPrintDialog& dialog) {
        auto* printers = dialog.findChild<QComboBox*>("printers");
        printers->setCurrentIndex(printers->count() - 1);
        dialog.findChild<QLineEdit*>("filename")
            ->setText(QString::fromStdString(folder / "page.pdf"));
        Confirm(dialog);
    });
    EXPECT_EQ(WordsOf(PagesOf(folder / "page.pdf")), WordsOf("to a file"));
    EXPECT_TRUE(server.Jobs().empty());

    pad->txtSpeech.SetText("to the printer");
    PrintPage(Cancel);
    EXPECT_EQ(WordsOf(PagesOf(folder / "page.pdf")), WordsOf("to a file"));
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("to the printer"));
}

TEST_F(PadPrinting, PadThatIsClosedWhileTheDialogStandsIsPrintedStill) {
    const PrintServer server;
    pad->Show();
    pad->txtSpeech.SetText("one two three");
    PrintPage([this](QPrintDialog& dialog) {
        pad->Close();
        QCoreApplication::processEvents();
        Cancel(dialog);
    });
    EXPECT_EQ(WordsOf(OnlyJob(server)), WordsOf("one two three"));
}

TEST_F(PadPrinting, PageMayBePrintedWhileTheDialogStands) {
    const PrintServer server;
    pad->txtSpeech.SetText("one two three");
    PrintPage([this](QPrintDialog& dialog) {
        PrintPage(Confirm);
        Cancel(dialog);
    });
    EXPECT_EQ(server.Jobs().size(), 2U);
}

}  // namespace
}  // namespace corvane::linux_desktop
