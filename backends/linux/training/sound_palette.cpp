// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/sound_palette.h"

#include <QEvent>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

struct Example {
    std::string_view sound;
    std::string_view word;  ///< in which it is heard
};

// Vowels first: it is they that are mistaken.
constexpr std::array<Example, 39> kExamples{{
    {"AA", "hot"}, {"AE", "cat"},   {"AH", "cup"},  {"AO", "law"},    {"AW", "cow"},
    {"AY", "my"},  {"EH", "red"},   {"ER", "bird"}, {"EY", "day"},    {"IH", "sit"},
    {"IY", "see"}, {"OW", "go"},    {"OY", "boy"},  {"UH", "good"},   {"UW", "moon"},
    {"B", "bed"},  {"CH", "chair"}, {"D", "dog"},   {"DH", "this"},   {"F", "fish"},
    {"G", "girl"}, {"HH", "house"}, {"JH", "jump"}, {"K", "key"},     {"L", "leg"},
    {"M", "man"},  {"N", "nose"},   {"NG", "sing"}, {"P", "pen"},     {"R", "run"},
    {"S", "sun"},  {"SH", "shoe"},  {"T", "tea"},   {"TH", "thin"},   {"V", "van"},
    {"W", "wind"}, {"Y", "yes"},    {"Z", "zoo"},   {"ZH", "vision"},
}};

}  // namespace

SoundPalette::SoundPalette(std::function<void(const QString& sound)> chosen) {
    setObjectName("palette");
    setAccessibleName(tr("All sounds"));
    setAccessibleDescription(tr("Enter writes the chosen sound"));
    setFlow(LeftToRight);
    setWrapping(true);
    setResizeMode(Adjust);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const Example& example : kExamples) {
        const QString text = tr("%1  as in %2").arg(Words(example.sound), Words(example.word));
        auto* item = new QListWidgetItem(text, this);
        item->setData(Qt::UserRole, Words(example.sound));
        item->setToolTip(tr("Double click or Enter writes it"));
    }
    FitGrid();
    connect(this, &QListWidget::itemActivated, this,
            [chosen = std::move(chosen)](const QListWidgetItem* item) {
                chosen(item->data(Qt::UserRole).toString());
            });
}

void SoundPalette::FitGrid() {
    int width = 0;
    for (int row = 0; row < count(); ++row)
        width = std::max(width, fontMetrics().horizontalAdvance(item(row)->text()));
    const int em = fontMetrics().height();
    setGridSize({width + em, em + em / 3});
    updateGeometry();
}

void SoundPalette::changeEvent(QEvent* event) {
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitGrid();
}

QSize SoundPalette::Rows(int rows) const {
    return {3 * gridSize().width() + 2 * frameWidth() + fontMetrics().height(),
            rows * gridSize().height() + 2 * frameWidth()};
}

QSize SoundPalette::sizeHint() const {
    return Rows(5);
}

QSize SoundPalette::minimumSizeHint() const {
    return Rows(2);
}

}  // namespace corvane::linux_desktop
