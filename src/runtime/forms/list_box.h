// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "runtime/numbers.h"

namespace corvane::forms {

class Form;

/// A list of texts, held sorted without regard to case, of which a person selects one.
class ListBox {
public:
    /// The control of that name in the form's layout, with the items of its row.
    ListBox(Form& form, std::string_view name);

    /// A person double-clicks into the list, whatever is selected in it.
    std::function<void()> DblClick;

    /// The selected item, counted from 0; -1 while none is.
    [[nodiscard]] Long ListIndex() const { return list_index_; }
    [[nodiscard]] Long ListCount() const;
    /// The item at a place counted from 0; empty where there is none.
    [[nodiscard]] std::string List(Long index) const;

private:
    std::vector<std::string> items_;
    Long list_index_ = -1;
    std::unique_ptr<IListPeer> peer_;
};

}  // namespace corvane::forms
