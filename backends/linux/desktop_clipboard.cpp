// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/desktop_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QString>
#include <utility>

#include "linux/session/x11_clipboard.h"
#include "linux/text_positions.h"

namespace corvane::linux_desktop {
namespace {

constexpr std::chrono::seconds kPatience{1};

}  // namespace

DesktopClipboard::DesktopClipboard(std::unique_ptr<Clipboard> clipboard)
    : clipboard_(std::move(clipboard)) {}

std::string DesktopClipboard::GetText() {
    QString text;
    switch (clipboard_->FindKeeper()) {
        case Clipboard::Keeper::Nobody:
            break;
        case Clipboard::Keeper::OurProgram:
            text = QGuiApplication::clipboard()->text();
            break;
        case Clipboard::Keeper::OtherProgram:
            // Not by Qt, which knows of another program's copy only after its next message.
            text = QString::fromStdString(clipboard_->ReadText(kPatience).value_or(std::string()));
            break;
    }
    // Some programs hand over the zero byte behind their text.
    if (const auto end = text.indexOf(QChar(u'\0')); end >= 0) text.truncate(end);
    return SystemText(text);
}

std::unique_ptr<Clipboard> MakeSessionClipboard() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return std::make_unique<X11Clipboard>(x11 != nullptr ? x11->connection() : nullptr);
}

}  // namespace corvane::linux_desktop
