// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/text_peers.h"

#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

#include "linux/shown_text.h"
#include "linux/text_positions.h"

namespace corvane::linux_desktop {
namespace {

/// Text and selection as the system counts them.
struct TextState {
    std::string text;
    std::int32_t start = 0;
    std::int32_t length = 0;
};

TextState StateOf(const QString& text, int start, int end) {
    const std::int32_t first = SystemPosition(text, start);
    return {SystemText(text), first, SystemPosition(text, end) - first};
}

TextState StateOf(const QLineEdit& edit) {
    if (!edit.hasSelectedText())
        return StateOf(edit.text(), edit.cursorPosition(), edit.cursorPosition());
    return StateOf(edit.text(), edit.selectionStart(), edit.selectionEnd());
}

TextState StateOf(const QTextEdit& edit) {
    // The raw text: the plain one would turn no-break spaces into ordinary ones.
    QString text = edit.document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    const QTextCursor cursor = edit.textCursor();
    return StateOf(text, cursor.selectionStart(), cursor.selectionEnd());
}

void Show(QLineEdit& edit, ShownText& shown, const std::string& text) {
    shown.Replace(text);
    edit.setText(ControlText(text));
    edit.setCursorPosition(0);
}

/// Adds to what is shown where it can: a long log would flicker and take its time if it were laid
/// out anew with each line.
void Show(QTextEdit& edit, ShownText& shown, const std::string& text) {
    QTextDocument& document = *edit.document();
    if (const auto addition = shown.Replace(text)) {
        QTextCursor end(&document);
        end.movePosition(QTextCursor::End);
        end.insertText(ControlText(*addition));
        // What the system wrote is not for a person to undo.
        document.clearUndoRedoStacks();
    } else {
        edit.setPlainText(ControlText(text));
    }
}

void Mark(QLineEdit& edit, int start, int end) {
    edit.setSelection(start, end - start);
    if (start == end) edit.setCursorPosition(start);
}

void Mark(QTextEdit& edit, int start, int end) {
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    edit.ensureCursorVisible();
}

template <class Editor>
class TextPeer final : public ITextPeer, public QObject {
public:
    TextPeer(Editor& editor, TextPeerEvents events) : editor_(&editor), events_(std::move(events)) {
        Know(StateOf(editor));
        // One edit comes as several signals, all of them after it is complete.
        connect(&editor, &Editor::textChanged, this, [this] { TellEdit(); });
        connect(&editor, &Editor::cursorPositionChanged, this, [this] { TellEdit(); });
        connect(&editor, &Editor::selectionChanged, this, [this] { TellEdit(); });
    }

    void SetFocus() override {
        if (editor_) editor_->setFocus();
    }

    void SetText(const std::string& text) override {
        if (!editor_) return;
        const QSignalBlocker quiet(*editor_);
        Show(*editor_, shown_, text);
        start_ = length_ = 0;
    }

    void SetSelection(std::int32_t start, std::int32_t length) override {
        if (!editor_) return;
        const QSignalBlocker quiet(*editor_);
        const int first = shown_.ControlPosition(start);
        const int last = length == 0 ? first : shown_.ControlPosition(start + length);
        Mark(*editor_, first, last);
        start_ = start;
        length_ = length;
    }

    void ReplaceSelection(const std::string& text) override {
        if (!editor_) return;
        const QSignalBlocker quiet(*editor_);
        if constexpr (std::is_same_v<Editor, QLineEdit>)
            editor_->insert(ControlText(text));
        else
            editor_->textCursor().insertText(ControlText(text));
        Know(StateOf(*editor_));
    }

    [[nodiscard]] HWND hWnd() const override { return 0; }

private:
    void Know(const TextState& state) {
        shown_ = ShownText(state.text);
        start_ = state.start;
        length_ = state.length;
    }

    void TellEdit() {
        const TextState state = StateOf(*editor_);
        if (state.start == start_ && state.length == length_ && state.text == shown_.text()) return;
        Know(state);
        // A copy, since the handler may let this control go.
        if (const auto handler = events_.Edited) handler(state.text, state.start, state.length);
    }

    QPointer<Editor> editor_;
    TextPeerEvents events_;
    ShownText shown_;
    std::int32_t start_ = 0;
    std::int32_t length_ = 0;
};

}  // namespace

std::unique_ptr<ITextPeer> MakeTextPeer(QWidget& widget, TextPeerEvents events) {
    if (auto* line = qobject_cast<QLineEdit*>(&widget))
        return std::make_unique<TextPeer<QLineEdit>>(*line, std::move(events));
    return std::make_unique<TextPeer<QTextEdit>>(dynamic_cast<QTextEdit&>(widget),
                                                 std::move(events));
}

}  // namespace corvane::linux_desktop
