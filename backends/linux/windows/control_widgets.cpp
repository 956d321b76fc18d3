// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/control_widgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QScrollBar>
#include <QTextEdit>
#include <algorithm>

#include "linux/canvas/control_view.h"
#include "linux/text_positions.h"
#include "linux/windows/accessible_widgets.h"
#include "linux/windows/keyed_button.h"
#include "linux/windows/list_widget.h"
#include "linux/windows/look.h"
#include "linux/windows/month_calendar.h"
#include "linux/windows/painted_widgets.h"
#include "linux/windows/picture_view.h"
#include "linux/windows/pictures.h"
#include "linux/windows/row_list.h"

namespace corvane::linux_desktop {
namespace {

QWidget* MakeLabel(const ControlDescription& control, QWidget& holder, Qt::Alignment alignment) {
    auto* label = new QLabel(Words(control.text), &holder);
    label->setTextFormat(Qt::PlainText);
    if (!control.font_family.empty() || control.bold)
        label->setFont(FontOf({.family = std::string(control.font_family), .bold = control.bold}));
    const int line_height = QFontMetrics(label->font()).height();
    label->setWordWrap(Pixels(control.place.height) >= 2 * line_height);
    label->setAlignment(alignment | Qt::AlignTop);
    return label;
}

QWidget* MakePictureBox(const ControlDescription& control, QWidget& holder,
                        const Pictures& pictures) {
    auto* view = new PictureView(PictureView::Fit::OwnSize, &holder);
    view->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    view->SetPicture(pictures.Find(Words(control.text)));
    return view;
}

QWidget* MakeImage(const ControlDescription& control, QWidget& holder, const Pictures& pictures) {
    auto* view = new PictureView(PictureView::Fit::Stretched, &holder);
    view->SetPicture(pictures.Find(Words(control.text)));
    return view;
}

QWidget* MakeLineEdit(const ControlDescription& control, QWidget& holder) {
    auto* edit = new QLineEdit(ControlText(control.text), &holder);
    // Styles leave more room at the sides than three digits in the narrowest box can spare.
    edit->setTextMargins(-2, 0, -2, 0);
    return edit;
}

/// What is marked looks the same wherever the focus is.
void KeepMarkVisible(QWidget& editor) {
    QPalette palette = editor.palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    editor.setPalette(palette);
}

QWidget* MakeEditor(const ControlDescription& control, QWidget& holder) {
    auto* editor = new QTextEdit(&holder);
    editor->setAcceptRichText(false);
    editor->setTabChangesFocus(true);
    editor->setVerticalScrollBarPolicy(control.kind == ControlKind::MultilineTextBox
                                           ? Qt::ScrollBarAlwaysOn
                                           : Qt::ScrollBarAsNeeded);
    editor->setPlainText(ControlText(control.text));
    if (!control.hide_selection) KeepMarkVisible(*editor);
    return editor;
}

QWidget* MakeProgressBar(QWidget& holder) {
    auto* bar = new QProgressBar(&holder);
    bar->setRange(0, 100);
    bar->setValue(0);
    bar->setTextVisible(false);
    return bar;
}

QWidget* MakeButton(const ControlDescription& control, QWidget& holder, const Pictures& pictures) {
    constexpr QSize kPictureSize(24, 24);
    auto* button = new KeyedButton(Words(control.text), &holder);
    if (!control.picture.empty()) button->setIcon(pictures.Find(Words(control.picture)));
    button->setIconSize(kPictureSize);
    button->setEnabled(control.enabled);
    return button;
}

QWidget* MakeCheckBox(const ControlDescription& control, QWidget& holder) {
    auto* box = new QCheckBox(Words(control.text), &holder);
    box->setChecked(control.checked);
    return box;
}

QWidget* MakeWidget(const ControlDescription& control, QWidget& holder, const Pictures& pictures) {
    switch (control.kind) {
        case ControlKind::ListBox:
            return new ListWidget(&holder);  // its peer fills it
        case ControlKind::Frame:
            return new CaptionedFrame(Words(control.text), &holder);
        case ControlKind::PictureBox:
            return MakePictureBox(control, holder, pictures);
        case ControlKind::Image:
            return MakeImage(control, holder, pictures);
        case ControlKind::Label:
            return MakeLabel(control, holder, Qt::AlignLeft);
        case ControlKind::CentredLabel:
            return MakeLabel(control, holder, Qt::AlignHCenter);
        case ControlKind::Gauge:
            return new ControlView(&holder);
        case ControlKind::TextBox:
            return MakeLineEdit(control, holder);
        case ControlKind::MultilineTextBox:
        case ControlKind::RichTextBox:
            return MakeEditor(control, holder);
        case ControlKind::ProgressBar:
            return MakeProgressBar(holder);
        case ControlKind::CommandButton:
            return MakeButton(control, holder, pictures);
        case ControlKind::CheckBox:
            return MakeCheckBox(control, holder);
        case ControlKind::ListView:
            return new RowList(Words(control.text).split(u'\n'), &holder);
        case ControlKind::Calendar:
            return new MonthCalendar(&holder);
        case ControlKind::Line:
            return new DividingLine(&holder);
        case ControlKind::CommonDialog:
        case ControlKind::ImageList:
        case ControlKind::Timer:
            return nullptr;
    }
    return nullptr;
}

void SetColours(QWidget& widget, ControlColours colours) {
    if (colours == ControlColours::System) return;
    QPalette palette = widget.palette();
    if (colours == ControlColours::WhiteOnBlack) {
        palette.setColor(QPalette::Base, Qt::black);
        palette.setColor(QPalette::Text, Qt::white);
    } else if (colours == ControlColours::RedOnYellow) {
        palette.setColor(QPalette::Window, Qt::yellow);
        palette.setColor(QPalette::WindowText, Qt::red);
        widget.setAutoFillBackground(true);
    } else {
        const QPalette menu = QApplication::palette("QMenu");
        palette.setColor(QPalette::Base, menu.color(QPalette::Window));
        palette.setColor(QPalette::Text, menu.color(QPalette::WindowText));
    }
    widget.setPalette(palette);
}

/// What a screen reader says: the role, or else the caption without the mark of its access key.
QString SpokenName(const ControlDescription& control) {
    if (!control.role.empty()) return Words(control.role);
    if (control.kind == ControlKind::CommandButton) return Words(control.text).remove(u'&');
    return Words(control.text).trimmed();
}

void NameScrollBars(const QWidget& widget) {
    const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget);
    if (area == nullptr) return;
    const QString name = widget.accessibleName();
    area->verticalScrollBar()->setAccessibleName(name + QStringLiteral(", up and down"));
    area->horizontalScrollBar()->setAccessibleName(name + QStringLiteral(", left and right"));
}

}  // namespace

QWidget* MakeControlWidget(const ControlDescription& control, QWidget& holder,
                           const Pictures& pictures) {
    QWidget* widget = MakeWidget(control, holder, pictures);
    if (widget == nullptr) return nullptr;
    ForgetEarlyAnswers(*widget);
    widget->setObjectName(Words(control.name));
    widget->setAccessibleName(SpokenName(control));
    // Of a label the name is its role, so what it says goes here.
    if (qobject_cast<QLabel*>(widget) != nullptr && !control.role.empty())
        widget->setAccessibleDescription(Words(control.text));
    NameScrollBars(*widget);
    widget->setToolTip(Words(control.tool_tip));
    SetColours(*widget, control.colours);
    return widget;
}

QRect WidgetPlace(const ControlDescription& control, const QWidget& widget) {
    QRect place = PixelPlace(control);
    if (control.kind == ControlKind::CheckBox)
        place.setWidth(std::max(place.width(), widget.sizeHint().width()));
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label == nullptr || label->wordWrap() || label->text().isEmpty()) return place;
    // A single line is never cut off, whatever the width of the letters here.
    const QRect text(QPoint(), label->sizeHint());
    const int wider = std::max(0, text.width() - place.width());
    const int on_the_left = control.kind == ControlKind::CentredLabel ? wider / 2 : 0;
    place.adjust(-on_the_left, 0, wider - on_the_left, 0);
    place.setHeight(std::max(place.height(), text.height()));
    return place;
}

}  // namespace corvane::linux_desktop
