// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/controls.h"
#include "runtime/text.h"
#include "simulated/call_record.h"
#include "simulated/cell_windows.h"

/// The controls in a simulated window: each keeps what it shows in the window's record.
namespace corvane::simulated {

/// What all peers share: the window they stand in and their own name.
template <class Peer>
class CellControl : public Peer {
public:
    CellControl(CallRecord& record, std::shared_ptr<ShownWindow> window, std::string_view name)
        : record_(record), window_(std::move(window)), name_(name) {}

    void SetFocus() override {
        record_.Call("SetFocus", name_);
        window_->MoveFocus(name_);
    }

protected:
    CallRecord& record_;
    std::shared_ptr<ShownWindow> window_;
    std::string name_;
};

class CellText final : public CellControl<ITextPeer> {
public:
    using CellControl::CellControl;

    void SetText(const std::string& text) override {
        record_.Quietly("SetText");
        ShownText& shown = window_->texts.at(name_);
        shown.text = text;
        shown.start = shown.length = 0;
    }

    void SetSelection(std::int32_t start, std::int32_t length) override {
        record_.Quietly("SetSelection");
        ShownText& shown = window_->texts.at(name_);
        shown.start = start;
        shown.length = length;
    }

    void ReplaceSelection(const std::string& text) override {
        record_.Quietly("ReplaceSelection");
        ShownText& shown = window_->texts.at(name_);
        shown.text = Left(shown.text, shown.start) + text +
                     Mid(shown.text, Long(shown.start) + shown.length + 1, Len(shown.text));
        shown.start += Len(text).rep();
        shown.length = 0;
    }

    HWND hWnd() const override { return window_->texts.at(name_).handle; }
};

class CellRange final : public CellControl<IRangePeer> {
public:
    using CellControl::CellControl;
    void SetValue(std::int32_t value) override { window_->ranges[name_] = value; }
};

class CellLabel final : public CellControl<ILabelPeer> {
public:
    using CellControl::CellControl;
    void SetCaption(const std::string& caption) override {
        record_.Quietly("SetCaption");
        window_->captions[name_] = caption;
    }
};

class CellPicture final : public CellControl<IPicturePeer> {
public:
    using CellControl::CellControl;
    void SetPicture(const std::string& name) override {
        record_.Quietly("SetPicture");
        window_->pictures[name_] = name;
    }
};

class CellList final : public CellControl<IListPeer> {
public:
    using CellControl::CellControl;
};

class CellButton final : public CellControl<IButtonPeer> {
public:
    using CellControl::CellControl;
    void SetVisible(bool visible) override { window_->buttons.at(name_).visible = visible; }
    void SetEnabled(bool enabled) override { window_->buttons.at(name_).enabled = enabled; }
    void SetDefault(bool is_default) override {
        window_->buttons.at(name_).is_default = is_default;
    }
};

class CellCheckBox final : public CellControl<ICheckBoxPeer> {
public:
    using CellControl::CellControl;
    void SetChecked(bool checked) override { window_->check_boxes.at(name_).checked = checked; }
};

class CellListView final : public CellControl<IListViewPeer> {
public:
    using CellControl::CellControl;

    void SetPlace(const ComputedPlace& place) override {
        record_.Quietly("SetPlace");
        shown().place = place;
    }
    void SetColumnWidth(std::int32_t column, float width) override {
        record_.Quietly("SetColumnWidth");
        shown().columns.at(Place(column)) = width;
    }
    void AddRow(const std::string& text) override {
        record_.Quietly("AddRow");
        shown().rows.emplace_back(shown().columns.size()).front() = text;
    }
    void SetCell(std::int32_t row, std::int32_t column, const std::string& text) override {
        record_.Quietly("SetCell");
        shown().rows.at(Place(row)).at(Place(column)) = text;
    }
    void RemoveRow(std::int32_t row) override {
        record_.Quietly("RemoveRow");
        shown().rows.erase(shown().rows.begin() + row);
        shown().selected = kNoRow;
    }
    void RemoveAllRows() override {
        record_.Quietly("RemoveAllRows");
        shown().rows.clear();
        shown().selected = kNoRow;
    }
    void SelectRow(std::int32_t row) override {
        record_.Quietly("SelectRow");
        shown().selected = row;
    }
    void BringIntoView(std::int32_t row) override {
        record_.Quietly("BringIntoView");
        shown().brought_into_view = row;
    }
    void SetHideSelection(bool hide) override {
        record_.Quietly("SetHideSelection");
        shown().hide_selection = hide;
    }

private:
    [[nodiscard]] ShownListView& shown() const { return window_->list_views.at(name_); }
    static std::size_t Place(std::int32_t index) { return static_cast<std::size_t>(index); }
};

class CellCalendar final : public CellControl<ICalendarPeer> {
public:
    using CellControl::CellControl;

    void SetPlace(const ComputedPlace& place) override {
        record_.Quietly("SetPlace");
        window_->calendars.at(name_).place = place;
    }
    void SetDate(const CalendarDate& date) override {
        record_.Quietly("SetDate");
        window_->calendars.at(name_).date = date;
    }
};

}  // namespace corvane::simulated
