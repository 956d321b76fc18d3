// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <QString>

#include "linux/session/clipboard.h"

namespace corvane::linux_desktop {

Copied CopiedText(std::u32string_view text) {
    const std::string utf8 =
        QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size())).toStdString();
    std::string latin1;
    for (const char32_t character : text)
        latin1 += character <= 0xFF ? static_cast<char>(character) : '?';
    return {{"UTF8_STRING", "UTF8_STRING", utf8},
            {"text/plain;charset=utf-8", "text/plain;charset=utf-8", utf8},
            {"text/plain", "text/plain", utf8},
            {"TEXT", "UTF8_STRING", utf8},
            {"STRING", "STRING", latin1}};
}

}  // namespace corvane::linux_desktop
