// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "runtime/forms/movable.h"
#include "runtime/nullable.h"
#include "runtime/numbers.h"

namespace corvane::forms {

class Form;
class ListView;

/// One row. It belongs to whoever holds it; its use after it was removed raises kObjectNotSet.
class ListItem {
public:
    [[nodiscard]] const std::string& Text() const { return text_; }
    /// Sub-items count from 1, the second column; out of range raises kSubscriptOutOfRange.
    [[nodiscard]] const std::string& SubItem(Long index) const;
    void SetSubItem(Long index, const std::string& text);

    /// Place among the rows, from 1.
    [[nodiscard]] Long Index() const;
    /// Scrolls as far as needed.
    void EnsureVisible();
    /// Makes this the selected row, or with false, if it is the selected one, leaves none selected.
    void SetSelected(bool selected);

private:
    friend class ListView;
    ListItem(ListView& list, std::string text, std::size_t sub_items)
        : list_(&list), text_(std::move(text)), sub_items_(sub_items) {}
    [[nodiscard]] ListView& list() const;

    ListView* list_;  // nullptr once it was removed
    std::string text_;
    std::vector<std::string> sub_items_;
};

/// Rows under column headers. Between messages it is itself the truth about rows and selection.
///
/// As long as there are rows one of them is selected, unless the system itself has taken the
/// selection away: the first row of all is selected when it is added, and when the selected row is
/// removed the one that moves into its place is selected, or else the new last one.
class ListView : public Movable<IListViewPeer> {
public:
    using Row = Nullable<ListItem>;

    /// The control of that name in the form's layout.
    ListView(Form& form, std::string_view name);
    ~ListView();

    std::function<void()> Click;     ///< a person has clicked, on a row or beside them
    std::function<void()> DblClick;  ///< and again; a Click comes before it
    std::function<void()> LostFocus;

    /// Puts a row behind the others.
    Row Add(const std::string& text);
    /// Rows count from 1; out of range raises kSubscriptOutOfRange.
    void Remove(Long index);
    void Clear();
    [[nodiscard]] Long Count() const { return static_cast<std::int64_t>(rows_.size()); }
    [[nodiscard]] Row Item(Long index) const;

    /// Empty when none is.
    [[nodiscard]] const Row& SelectedItem() const { return selected_; }

    /// The first row whose text begins with `text`, compared exactly; empty if there is none.
    [[nodiscard]] Row FindItem(const std::string& text) const;

    /// Whether the selection is out of sight while another control has the focus.
    [[nodiscard]] bool HideSelection() const { return hide_selection_; }
    void SetHideSelection(bool hide);

    /// Columns count from 1; out of range raises kSubscriptOutOfRange. In twips.
    [[nodiscard]] float ColumnWidth(Long index) const;
    void SetColumnWidth(Long index, float width);

private:
    friend class ListItem;

    [[nodiscard]] std::size_t PlaceOf(const ListItem& row) const;
    void Select(std::int32_t row);
    void TakeSelection(std::int32_t row);
    [[nodiscard]] ListViewPeerEvents Events(Form& form);

    std::vector<float> columns_;
    std::vector<std::shared_ptr<ListItem>> rows_;
    Row selected_;
    bool hide_selection_ = true;
};

}  // namespace corvane::forms
