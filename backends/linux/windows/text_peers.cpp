// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/text_peers.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <string>
#include <utility>

#include "linux/shown_text.h"
#include "linux/text_positions.h"
#include "linux/windows/control_handles.h"
#include "linux/windows/frame.h"

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
    const QTextCursor cursor = edit.textCursor();
    return StateOf(TextOf(edit), cursor.selectionStart(), cursor.selectionEnd());
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

void Insert(QLineEdit& edit, const QString& text) {
    edit.insert(text);
}

void Insert(QTextEdit& edit, const QString& text) {
    edit.textCursor().insertText(text);
    edit.ensureCursorVisible();
}

template <class Editor>
class TextPeer final : public ITextPeer, public QObject {
public:
    TextPeer(Editor& editor, ControlHandles& handles, TextPeerEvents events)
        : editor_(&editor), handles_(handles), events_(std::move(events)) {
        Know(StateOf(editor));
        // One edit comes as several signals, all of them after it is complete.
        connect(&editor, &Editor::textChanged, this, [this] { TellEdit(); });
        connect(&editor, &Editor::cursorPositionChanged, this, [this] { TellEdit(); });
        connect(&editor, &Editor::selectionChanged, this, [this] { TellEdit(); });
        connect(qApp, &QApplication::focusChanged, this,
                [this](const QWidget* /*old*/, const QWidget* now) { FollowFocus(now); });
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
        Insert(*editor_, ControlText(text));
        Know(StateOf(*editor_));
    }

    [[nodiscard]] HWND hWnd() const override { return editor_ ? handles_.HandleOf(*editor_) : 0; }

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

    void FollowFocus(const QWidget* now) {
        // No widget at all is another program; a dialog gives the focus back to where it was.
        if (now == nullptr || dynamic_cast<const Frame*>(now->window()) == nullptr) return;
        const bool here = now == editor_;
        if (here == std::exchange(has_focus_, here)) return;
        // A copy, since the handler may let this control go.
        if (const auto handler = here ? events_.GotFocus : events_.LostFocus) handler();
    }

    QPointer<Editor> editor_;
    ControlHandles& handles_;
    TextPeerEvents events_;
    ShownText shown_;
    std::int32_t start_ = 0;
    std::int32_t length_ = 0;
    bool has_focus_ = false;
};

}  // namespace

std::unique_ptr<ITextPeer> MakeTextPeer(QWidget& widget, ControlHandles& handles,
                                        TextPeerEvents events) {
    if (auto* line = qobject_cast<QLineEdit*>(&widget))
        return std::make_unique<TextPeer<QLineEdit>>(*line, handles, std::move(events));
    return std::make_unique<TextPeer<QTextEdit>>(dynamic_cast<QTextEdit&>(widget), handles,
                                                 std::move(events));
}

QString TextOf(const QTextEdit& editor) {
    // The raw text: the plain one would turn no-break spaces into ordinary ones.
    QString text = editor.document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

}  // namespace corvane::linux_desktop
