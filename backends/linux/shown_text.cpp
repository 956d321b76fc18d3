// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/shown_text.h"

#include <utility>

#include "linux/text_positions.h"

namespace corvane::linux_desktop {
namespace {

/// Whether no character or line end can begin before the text's end and reach beyond it.
bool EndsClean(std::string_view text) {
    return !text.empty() && static_cast<unsigned char>(text.back()) < 0x80 && text.back() != '\r';
}

}  // namespace

ShownText::ShownText(std::string text) : text_(std::move(text)) {}

std::optional<std::string_view> ShownText::Replace(const std::string& text) {
    if (!EndsClean(text_) || !text.starts_with(text_)) {
        text_ = text;
        addition_ = {};
        return std::nullopt;
    }
    const TextSize before = SizeOf(std::string_view(text_).substr(addition_.bytes));
    addition_ = {text_.size(), addition_.characters + before.characters,
                 addition_.units + before.units};
    text_.append(text, addition_.bytes);
    return std::string_view(text_).substr(addition_.bytes);
}

int ShownText::ControlPosition(std::int32_t position) const {
    if (position < addition_.characters) return linux_desktop::ControlPosition(text_, position);
    return addition_.units +
           linux_desktop::ControlPosition(std::string_view(text_).substr(addition_.bytes),
                                          position - addition_.characters);
}

}  // namespace corvane::linux_desktop
