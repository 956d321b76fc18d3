// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <QProcess>
#include <QTest>
#include <stdexcept>
#include <vector>

#include "backends/linux/other_program.h"
#include "contract/desktop_world.h"
#include "linux/desktop_clipboard.h"
#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"

/// Needs an X server, a window manager, and a QApplication.
namespace corvane::testing {
namespace {

using namespace linux_desktop;

class LinuxDesktopWorld final : public DesktopWorld {
public:
    ~LinuxDesktopWorld() override {
        for (const auto& copier : copiers_) {
            copier->kill();
            copier->waitForFinished();
        }
    }

    IUser32& user32() override { return user32_; }
    IWindowToolkit& toolkit() override { return toolkit_; }
    IClipboard& clipboard() override { return clipboard_; }

    HWND OpenOther(const std::string& caption) override {
        const auto& program = programs_.emplace_back(
            std::make_unique<OtherProgram>(*session_, Terminal(QString::fromStdString(caption))));
        user32_.SetForegroundWindow(program->window());
        const auto in_front = [&] { return user32_.GetForegroundWindow() == program->window(); };
        if (!Becomes(in_front)) throw std::runtime_error("the program's window stays behind");
        return program->window();
    }
    void CopyElsewhere(const std::string& text) override {
        const auto before = clipboard_.SequenceNumber();
        const auto& copier = copiers_.emplace_back(std::make_unique<QProcess>());
        copier->start(CORVANE_GTK_COPIER, {QString::fromStdString(text)});
        if (!Becomes([&] { return clipboard_.SequenceNumber() != before; }))
            throw std::runtime_error("the program copies nothing");
    }
    bool CanBeSeen(HWND window) override {
        for (const QWidget* own : QApplication::topLevelWidgets())
            if (own->internalWinId() == window && !own->isVisible()) return false;
        const auto facts = session_->Describe(window);
        return facts && !facts->minimised;
    }
    bool FillsTheScreen(HWND window) override {
        const auto facts = session_->Describe(window);
        return facts && facts->maximised;
    }
    bool Becomes(const std::function<bool()>& holds) override {
        return QTest::qWaitFor(holds, kBound);
    }

private:
    std::unique_ptr<Windows> session_ = MakeSessionWindows();
    QtToolkit toolkit_{"no pictures"};
    User32 user32_{MakeSessionWindows(), toolkit_.Controls(), toolkit_.Gdi32()};
    DesktopClipboard clipboard_{MakeSessionClipboard()};
    std::vector<std::unique_ptr<OtherProgram>> programs_;
    std::vector<std::unique_ptr<QProcess>> copiers_;
};

}  // namespace

std::unique_ptr<DesktopWorld> MakeDesktopWorld() {
    return std::make_unique<LinuxDesktopWorld>();
}

}  // namespace corvane::testing
