// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/list_box.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "runtime/forms/form.h"
#include "runtime/text.h"

namespace corvane::forms {
namespace {

std::vector<std::string> SortedLines(std::string_view lines) {
    std::vector<std::string> items;
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        items.emplace_back(lines.substr(0, end));
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    std::ranges::stable_sort(items, {}, [](const std::string& item) { return LCase(item); });
    return items;
}

}  // namespace

ListBox::ListBox(Form& form, std::string_view name)
    : items_(SortedLines(form.Describe(name).text)) {
    ListPeerEvents events;
    events.Selected = [this, &form](std::int32_t index) {
        form.Enter([this, index] { list_index_ = index; });
    };
    events.DblClick = [this, &form] {
        form.Enter([this] {
            if (const auto handler = DblClick) handler();
        });
    };
    peer_ = form.window().AddList(form.Describe(name), items_, std::move(events));
}

Long ListBox::ListCount() const {
    return static_cast<std::int64_t>(items_.size());
}

std::string ListBox::List(Long index) const {
    if (index < 0 || index >= ListCount()) return {};
    return items_[static_cast<std::size_t>(index.rep())];
}

}  // namespace corvane::forms
