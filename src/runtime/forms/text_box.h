// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/controls.h"
#include "runtime/numbers.h"

namespace corvane::forms {

class Form;

/// A text box, of one line, of several, or rich. Between messages it is itself the truth about its
/// text and selection; the toolkit's control behind it only shows them. Positions count characters
/// of Text from 0, CR LF as two.
class TextBox {
public:
    /// The control of that name in the form's layout.
    TextBox(Form& form, std::string_view name);

    /// Raised when the text has become another one, by the system or by a person.
    std::function<void()> Change;
    /// The control takes the focus from another one of the system, or loses it to one.
    std::function<void()> GotFocus;
    std::function<void()> LostFocus;

    [[nodiscard]] const std::string& Text() const { return text_; }
    /// The caret moves to the start.
    void SetText(std::string text);

    void SetFocus();

    [[nodiscard]] Long SelStart() const { return sel_start_; }
    /// A place beyond the end is the end; a negative one raises kInvalidPropertyValue. Nothing is
    /// marked afterwards.
    void SetSelStart(Long start);
    [[nodiscard]] Long SelLength() const { return sel_length_; }
    /// Marks that many characters from SelStart on, or as many as there are; a negative number
    /// raises kInvalidPropertyValue.
    void SetSelLength(Long length);

    /// Puts a text in the place of what is marked, or at the caret, which stands behind it then.
    void SetSelText(const std::string& text);

    /// The control by itself, for messages to it.
    [[nodiscard]] HWND hWnd() const { return peer_->hWnd(); }

    /// Whether what is marked need not be seen while the focus is elsewhere.
    [[nodiscard]] bool HideSelection() const { return hide_selection_; }

private:
    void TakeEdit(const std::string& text, Long start, Long length);
    void RaiseChange();

    std::string text_;
    Long sel_start_;
    Long sel_length_;
    bool hide_selection_;
    std::unique_ptr<ITextPeer> peer_;
};

}  // namespace corvane::forms
