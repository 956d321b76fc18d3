// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPointer>
#include <QWidget>

#include "linux/canvas/canvas.h"
#include "platform/control_host.h"

namespace corvane::linux_desktop {

/// The place in a window of a control that draws itself. What the control draws as text is also
/// what a screen reader says of it.
class ControlView final : public QWidget {
public:
    explicit ControlView(QWidget* holder);

    /// The canvas must outlive the view, or be taken away again by nullptr.
    void Show(Canvas* canvas);
    void SetFrame(bool sunken);
    /// A null mask: all is seen.
    void SetShape(const QImage& mask, QRgb seeThrough);
    /// The whole number that its text begins with; 0 without one.
    [[nodiscard]] int Percentage() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Refresh(const QString& words);
    /// What is shown, transparent where it is not to be seen.
    [[nodiscard]] QImage CutOut() const;

    Canvas* canvas_ = nullptr;
    bool framed_ = false;
    QImage mask_;
    QRgb see_through_ = 0;
    bool stale_ = false;
};

class QtControlHost final : public IControlHost {
public:
    QtControlHost(Gdi& gdi, ControlView& view);
    ~QtControlHost() override;

    QtControlHost(const QtControlHost&) = delete;
    QtControlHost& operator=(const QtControlHost&) = delete;

    ISurface& Visible() override { return canvas_; }
    std::unique_ptr<ISurface> CreateHidden() override;
    void SetSize(PixelSize outer) override;
    void SetFrame(bool sunken) override;
    void SetShape(const Picture& mask, Colour seeThrough) override;
    void SetOpaque() override;
    [[nodiscard]] HWND hWnd() const override;
    Picture LoadPicture(const std::string& path) override;
    [[nodiscard]] StdFont AmbientFont() const override;
    [[nodiscard]] Twips TwipsPerPixelX() const override;
    [[nodiscard]] Twips TwipsPerPixelY() const override;

private:
    Gdi& gdi_;
    QPointer<ControlView> view_;
    Canvas canvas_;
};

}  // namespace corvane::linux_desktop
