// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/printing/format_range.h"

#include <QPainter>
#include <QPrinter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextLayout>
#include <algorithm>
#include <memory>
#include <optional>

#include "linux/printing/paper_font.h"
#include "linux/printing/printed_page.h"
#include "linux/text_positions.h"
#include "linux/windows/text_peers.h"

namespace corvane::linux_desktop {
namespace {

/// Fills a rectangle of a page with lines, from its top on.
class Column {
public:
    Column(const QTextEdit& editor, const RECT& rect, PrintedPage& page, Rendering rendering)
        : page_(page),
          rendering_(rendering),
          font_(PaperFont(editor.document()->defaultFont())),
          left_(page.Dots(static_cast<Twips>(rect.left))),
          width_(page.Dots(static_cast<Twips>(rect.right - rect.left))),
          line_top_(page.Dots(static_cast<Twips>(rect.top))),
          bottom_(page.Dots(static_cast<Twips>(rect.bottom))) {
        const double dots_a_pixel = page.Device().resolution() / 96.0;
        option_.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option_.setTabStopDistance(editor.tabStopDistance() * dots_a_pixel);
    }

    /// Adds a paragraph, or what an earlier page has left of one. Where in the words the first line
    /// without room begins; nothing if all of them have room.
    std::optional<int> Add(const QString& words, Qt::LayoutDirection direction) {
        option_.setTextDirection(direction);
        const auto paragraph = std::make_shared<QTextLayout>(words, font_, &page_.Device());
        paragraph->setCacheEnabled(true);
        paragraph->setTextOption(option_);
        std::optional<int> rest;
        int lines = 0;
        paragraph->beginLayout();
        for (QTextLine line = paragraph->createLine(); line.isValid();
             line = paragraph->createLine()) {
            line.setLeadingIncluded(true);
            line.setLineWidth(std::max(1.0, width_));
            // The first line always has room: whoever goes on from the answer comes to an end.
            if (!empty_ && line_top_ + line.height() > bottom_) {
                rest = line.textStart();
                break;
            }
            line.setPosition({left_, line_top_});
            line_top_ += line.height();
            empty_ = false;
            ++lines;
        }
        paragraph->endLayout();
        if (rendering_ == Rendering::Draw)
            page_.Put([paragraph, lines](QPainter& painter) {
                for (int i = 0; i < lines; ++i) paragraph->lineAt(i).draw(&painter, {});
            });
        return rest;
    }

private:
    PrintedPage& page_;
    Rendering rendering_;
    QFont font_;
    QTextOption option_;
    double left_;
    double width_;
    double line_top_;
    double bottom_;
    bool empty_ = true;
};

}  // namespace

std::int32_t FormatRange(const QTextEdit& editor, const FORMATRANGE& range, PrintedPage& page,
                         Rendering rendering) {
    const QString text = TextOf(editor);
    const std::string counted = SystemText(text);
    const int end = range.chrg.cpMax < 0 ? static_cast<int>(text.size())
                                         : ControlPosition(counted, range.chrg.cpMax);
    const int begin = std::min(ControlPosition(counted, range.chrg.cpMin), end);
    Column column(editor, range.rc, page, rendering);
    for (QTextBlock block = editor.document()->findBlock(begin);
         block.isValid() && block.position() <= end; block = block.next()) {
        const int from = std::max(begin, block.position());
        const int to = std::min(end, block.position() + block.length() - 1);
        const QString words = block.text().mid(from - block.position(), to - from);
        if (const auto rest = column.Add(words, block.textDirection()))
            return SystemPosition(text, from + *rest);
    }
    return SystemPosition(text, end);
}

}  // namespace corvane::linux_desktop
