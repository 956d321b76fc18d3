// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/canvas/control_view.h"

#include <qdrawutil.h>

#include <QAccessible>
#include <QFileInfo>
#include <QPainter>
#include <algorithm>

#include "linux/canvas/system_colours.h"
#include "linux/windows/look.h"
#include "platform/error.h"

namespace corvane::linux_desktop {

ControlView::ControlView(QWidget* holder) : QWidget(holder) {}

void ControlView::Show(Canvas* canvas) {
    if (canvas_ != nullptr) canvas_->Changed = [](const QString&) {};
    canvas_ = canvas;
    if (canvas_ != nullptr) canvas_->Changed = [this](const QString& words) { Refresh(words); };
    update();
}

void ControlView::SetFrame(bool sunken) {
    framed_ = sunken;
    update();
}

void ControlView::SetShape(const QImage& mask, QRgb seeThrough) {
    mask_ = mask;
    see_through_ = seeThrough;
    update();
}

void ControlView::Refresh(const QString& words) {
    // Hundreds of calls make one drawing; the first of them is enough to ask for the painting.
    if (!stale_) update();
    stale_ = true;
    if (words.isEmpty() || words == accessibleDescription()) return;
    setAccessibleDescription(words);
    QAccessibleValueChangeEvent told(this, Percentage());
    QAccessible::updateAccessibility(&told);
}

int ControlView::Percentage() const {
    const QString words = accessibleDescription();
    const auto end = std::ranges::find_if_not(words, [](QChar letter) { return letter.isDigit(); });
    return QStringView(words.begin(), end).toInt();
}

void ControlView::paintEvent(QPaintEvent* /*event*/) {
    stale_ = false;
    QPainter painter(this);
    // A screen of more dots than pixels would show the steps of every edge.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, devicePixelRatioF() > 1.0);
    const int frame = framed_ ? 1 : 0;
    if (canvas_ != nullptr) painter.drawImage(frame, frame, CutOut());
    if (framed_) qDrawShadePanel(&painter, rect(), palette(), true, frame);
}

QImage ControlView::CutOut() const {
    if (mask_.isNull()) return canvas_->Shown();
    QImage cut = canvas_->Shown().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const int width = std::min(cut.width(), mask_.width());
    const int height = std::min(cut.height(), mask_.height());
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(cut.scanLine(y));
        const auto* const shape = reinterpret_cast<const QRgb*>(mask_.constScanLine(y));
        for (int x = 0; x < width; ++x)
            if ((shape[x] | 0xFF000000U) == see_through_) row[x] = 0;
    }
    return cut;
}

QtControlHost::QtControlHost(Gdi& gdi, ControlView& view) : gdi_(gdi), view_(&view), canvas_(gdi) {
    view.Show(&canvas_);
}

QtControlHost::~QtControlHost() {
    if (view_) view_->Show(nullptr);
}

std::unique_ptr<ISurface> QtControlHost::CreateHidden() {
    return std::make_unique<Canvas>(gdi_);
}

void QtControlHost::SetSize(PixelSize outer) {
    if (view_) view_->resize(outer.width, outer.height);
}

void QtControlHost::SetFrame(bool sunken) {
    if (view_) view_->SetFrame(sunken);
}

void QtControlHost::SetShape(const Picture& mask, Colour seeThrough) {
    if (view_)
        view_->SetShape(ImageOf(mask).convertToFormat(QImage::Format_RGB32), PixelOf(seeThrough));
}

void QtControlHost::SetOpaque() {
    if (view_) view_->SetShape({}, 0);
}

HWND QtControlHost::hWnd() const {
    return view_ ? static_cast<HWND>(view_->effectiveWinId()) : 0;
}

Picture QtControlHost::LoadPicture(const std::string& path) {
    if (path.empty()) return std::make_shared<ImagePicture>(QImage());
    const QString file = Words(path);
    if (!QFileInfo::exists(file)) throw RuntimeError(kFileNotFound, "File not found: " + path);
    const QImage image(file);
    if (image.isNull()) throw RuntimeError(kInvalidPicture, "Invalid picture: " + path);
    return std::make_shared<ImagePicture>(image);
}

StdFont QtControlHost::AmbientFont() const {
    return {.Name = "MS Sans Serif"};
}

Twips QtControlHost::TwipsPerPixelX() const {
    return kTwipsPerPixel;
}

Twips QtControlHost::TwipsPerPixelY() const {
    return kTwipsPerPixel;
}

}  // namespace corvane::linux_desktop
