// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/desktop_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
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
    std::string text;
    switch (clipboard_->FindKeeper()) {
        case Clipboard::Keeper::Nobody:
            break;
        case Clipboard::Keeper::OurProgram:
            text = QGuiApplication::clipboard()->text().toStdString();
            break;
        case Clipboard::Keeper::OtherProgram:
            // Not by Qt, which knows of another program's copy only after its next message.
            text = clipboard_->ReadText(kPatience).value_or(std::string());
            break;
    }
    // Some programs hand over the zero byte behind their text.
    text.resize(std::min(text.find('\0'), text.size()));
    return SystemText(ControlText(text));
}

std::unique_ptr<Clipboard> MakeSessionClipboard() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return std::make_unique<X11Clipboard>(x11 != nullptr ? x11->connection() : nullptr);
}

}  // namespace corvane::linux_desktop
