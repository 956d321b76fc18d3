// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/forms/list_view.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/error.h"
#include "runtime/forms/form.h"

namespace corvane::forms {
namespace {

/// `index` counts from 1 to `count`; the place counts from 0.
std::size_t CheckedPlace(Long index, std::size_t count) {
    if (index < 1 || index > static_cast<std::int64_t>(count))
        throw RuntimeError(kSubscriptOutOfRange, "Subscript out of range");
    return static_cast<std::size_t>(index.rep()) - 1;
}

std::int32_t Narrow(std::size_t place) {
    return Long(static_cast<std::int64_t>(place)).rep();
}

}  // namespace

const std::string& ListItem::SubItem(Long index) const {
    return sub_items_[CheckedPlace(index, sub_items_.size())];
}

void ListItem::SetSubItem(Long index, const std::string& text) {
    sub_items_[CheckedPlace(index, sub_items_.size())] = text;
    list().peer_->SetCell(Narrow(list().PlaceOf(*this)), index.rep(), text);
}

Long ListItem::Index() const {
    return static_cast<std::int64_t>(list().PlaceOf(*this)) + 1;
}

void ListItem::EnsureVisible() {
    list().peer_->BringIntoView(Narrow(list().PlaceOf(*this)));
}

void ListItem::SetSelected(bool selected) {
    ListView& list = this->list();
    const std::size_t place = list.PlaceOf(*this);
    if (selected)
        list.Select(Narrow(place));
    else if (!list.selected_.empty() && list.selected_.shared().get() == this)
        list.Select(kNoRow);
}

ListView& ListItem::list() const {
    if (list_ == nullptr)
        throw RuntimeError(kObjectNotSet, "Object variable or With block variable not set");
    return *list_;
}

ListView::ListView(Form& form, std::string_view name) : Movable(form.Describe(name).place) {
    const ControlDescription& control = form.Describe(name);
    const auto headers = std::ranges::count(control.text, '\n') + 1;
    columns_.resize(static_cast<std::size_t>(headers));
    peer_ = form.window().AddListView(control, Events(form));
}

ListView::~ListView() {
    for (const auto& row : rows_) row->list_ = nullptr;
}

ListViewPeerEvents ListView::Events(Form& form) {
    ListViewPeerEvents events;
    events.Click = [this, &form](std::int32_t row) {
        form.Enter([this, row] {
            TakeSelection(row);
            if (const auto handler = Click) handler();
        });
    };
    events.DblClick = [this, &form](std::int32_t row) {
        form.Enter([this, row] {
            TakeSelection(row);
            if (const auto handler = DblClick) handler();
        });
    };
    events.Select = [this, &form](std::int32_t row) {
        form.Enter([this, row] { TakeSelection(row); });
    };
    events.LostFocus = [this, &form] {
        form.Enter([this] {
            if (const auto handler = LostFocus) handler();
        });
    };
    return events;
}

ListView::Row ListView::Add(const std::string& text) {
    const std::shared_ptr<ListItem> row(new ListItem(*this, text, columns_.size() - 1));
    peer_->AddRow(text);
    rows_.push_back(row);
    if (rows_.size() == 1) Select(0);
    return row;
}

void ListView::Remove(Long index) {
    const std::size_t place = CheckedPlace(index, rows_.size());
    const auto row = rows_[place];
    peer_->RemoveRow(Narrow(place));
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
    row->list_ = nullptr;
    if (selected_.empty() || selected_.shared() != row) return;
    Select(rows_.empty() ? kNoRow : Narrow(std::min(place, rows_.size() - 1)));
}

void ListView::Clear() {
    peer_->RemoveAllRows();
    for (const auto& row : rows_) row->list_ = nullptr;
    rows_.clear();
    Select(kNoRow);
}

ListView::Row ListView::Item(Long index) const {
    return rows_[CheckedPlace(index, rows_.size())];
}

ListView::Row ListView::FindItem(const std::string& text) const {
    const auto row = std::ranges::find_if(
        rows_, [&](const auto& candidate) { return candidate->Text().starts_with(text); });
    return row == rows_.end() ? Row() : Row(*row);
}

void ListView::SetHideSelection(bool hide) {
    hide_selection_ = hide;
    peer_->SetHideSelection(hide);
}

float ListView::ColumnWidth(Long index) const {
    return columns_[CheckedPlace(index, columns_.size())];
}

void ListView::SetColumnWidth(Long index, float width) {
    const std::size_t column = CheckedPlace(index, columns_.size());
    peer_->SetColumnWidth(Narrow(column), width);
    columns_[column] = width;
}

std::size_t ListView::PlaceOf(const ListItem& row) const {
    const auto found = std::ranges::find(rows_, &row, &std::shared_ptr<ListItem>::get);
    return static_cast<std::size_t>(found - rows_.begin());
}

void ListView::Select(std::int32_t row) {
    peer_->SelectRow(row);
    selected_ = row == kNoRow ? Row() : Row(rows_[static_cast<std::size_t>(row)]);
}

void ListView::TakeSelection(std::int32_t row) {
    if (row >= 0 && row < Narrow(rows_.size())) selected_ = rows_[static_cast<std::size_t>(row)];
}

}  // namespace corvane::forms
