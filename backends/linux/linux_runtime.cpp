// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/linux_runtime.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "linux/launch/detached_process.h"
#include "linux/launch/executable_folder.h"
#include "linux/launch/program_search.h"
#include "linux/send_keys_notation.h"
#include "linux/text_positions.h"
#include "platform/error.h"

namespace corvane::linux_desktop {
namespace {

QString TitleOf(const std::string& title) {
    return title.empty() ? QStringLiteral("KT Corvane") : QString::fromStdString(title);
}

}  // namespace

LinuxRuntime::LinuxRuntime(std::unique_ptr<Keys> keys)
    : keys_(std::move(keys)), executable_folder_(ExecutableFolderOfThisProcess()) {}

void LinuxRuntime::SendKeys(const std::string& keys, bool wait) {
    switch (keys_->Type(ParseKeys(keys))) {
        case SessionAnswer::Done:
            break;
        case SessionAnswer::Unsupported:
            throw RuntimeError(kInvalidProcedureCall, "Invalid procedure call or argument");
        case SessionAnswer::Denied:
            throw RuntimeError(kPermissionDenied, "Permission denied");
    }
    if (wait) keys_->WaitUntilTaken();
}

void LinuxRuntime::Shell(const std::string& path, ShellWindowStyle /*style*/) {
    const auto invocation = FindInvocation(path, SearchPlaces::OfEnvironment());
    const char* home = std::getenv("HOME");
    if (!invocation || !StartDetached(*invocation, home != nullptr ? home : "/"))
        throw RuntimeError(kFileNotFound, "File not found: " + path);
}

MsgBoxResult LinuxRuntime::MsgBox(const std::string& prompt, MsgBoxStyle style,
                                  const std::string& title) {
    QMessageBox box;
    box.setTextFormat(Qt::PlainText);
    box.setText(ControlText(prompt));
    if (style == kCritical) box.setIcon(QMessageBox::Critical);
    if (style == kYesNoQuestion) {
        box.setIcon(QMessageBox::Question);
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    }
    box.setWindowTitle(TitleOf(title));
    const int pressed = box.exec();
    if (style != kYesNoQuestion) return kOk;
    return pressed == QMessageBox::Yes ? kYes : kNo;
}

std::string LinuxRuntime::InputBox(const std::string& prompt, const std::string& title) {
    QInputDialog box;
    box.setLabelText(ControlText(prompt));
    for (auto* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
    box.setWindowTitle(TitleOf(title));
    return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

void LinuxRuntime::ShowErrorReport(std::int32_t number, const std::string& text) {
    const std::string report = "Run-time error " + std::to_string(number) + ": " + text;
    std::cerr << "KT Corvane: " << report << '\n' << std::flush;
    QMessageBox::critical(nullptr, "KT Corvane", QString::fromStdString(report));
}

void LinuxRuntime::End() {
    // No destructor runs.
    keys_->GiveAllBack();
    std::_Exit(0);
}

}  // namespace corvane::linux_desktop
