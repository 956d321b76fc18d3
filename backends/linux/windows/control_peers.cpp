// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/control_peers.h"

#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <utility>

#include "linux/windows/control_widgets.h"
#include "linux/windows/keyed_button.h"
#include "linux/windows/look.h"
#include "linux/windows/picture_view.h"
#include "linux/windows/pictures.h"

namespace corvane::linux_desktop {
namespace {

template <class Peer, class Widget>
class WidgetPeer : public Peer {
public:
    explicit WidgetPeer(QWidget& widget) : widget_(dynamic_cast<Widget*>(&widget)) {}

    void SetFocus() override {
        if (widget_) widget_->setFocus();
    }

protected:
    QPointer<Widget> widget_;
};

class RangePeer final : public WidgetPeer<IRangePeer, QProgressBar> {
public:
    using WidgetPeer::WidgetPeer;
    void SetValue(std::int32_t value) override {
        if (widget_) widget_->setValue(value);
    }
};

class LabelPeer final : public WidgetPeer<ILabelPeer, QLabel> {
public:
    LabelPeer(QWidget& widget, const ControlDescription& control)
        : WidgetPeer(widget), control_(control) {}

    void SetCaption(const std::string& caption) override {
        if (!widget_) return;
        widget_->setText(Words(caption));
        if (!control_.role.empty()) widget_->setAccessibleDescription(Words(caption));
        widget_->setGeometry(WidgetPlace(control_, *widget_));
    }

private:
    ControlDescription control_;
};

class PicturePeer final : public WidgetPeer<IPicturePeer, PictureView> {
public:
    PicturePeer(QWidget& widget, const Pictures& pictures)
        : WidgetPeer(widget), pictures_(pictures) {}

    void SetPicture(const std::string& name) override {
        if (widget_) widget_->SetPicture(pictures_.Find(Words(name)));
    }

private:
    const Pictures& pictures_;
};

class ButtonPeer final : public WidgetPeer<IButtonPeer, KeyedButton> {
public:
    ButtonPeer(QWidget& widget, ButtonPeerEvents events) : WidgetPeer(widget) {
        widget_->KeyDown = std::move(events.KeyDown);
        QObject::connect(widget_, &QPushButton::clicked, widget_,
                         [Click = std::move(events.Click)] {
                             // A copy, since the handler may let this button go.
                             if (const auto handler = Click) handler();
                         });
    }

    void SetVisible(bool visible) override {
        if (widget_) widget_->setVisible(visible);
    }
    void SetEnabled(bool enabled) override {
        if (widget_) widget_->setEnabled(enabled);
    }
    void SetDefault(bool is_default) override {
        if (widget_) widget_->setDefault(is_default);
    }
};

class CheckBoxPeer final : public WidgetPeer<ICheckBoxPeer, QCheckBox> {
public:
    CheckBoxPeer(QWidget& widget, CheckBoxPeerEvents events) : WidgetPeer(widget) {
        // What a person does; setChecked does not raise it.
        QObject::connect(widget_, &QCheckBox::clicked, widget_,
                         [Click = std::move(events.Click)](bool checked) {
                             if (const auto handler = Click) handler(checked);
                         });
    }

    void SetChecked(bool checked) override {
        if (widget_) widget_->setChecked(checked);
    }
};

}  // namespace

std::unique_ptr<IRangePeer> MakeRangePeer(QWidget& widget) {
    return std::make_unique<RangePeer>(widget);
}

std::unique_ptr<ILabelPeer> MakeLabelPeer(QWidget& widget, const ControlDescription& control) {
    return std::make_unique<LabelPeer>(widget, control);
}

std::unique_ptr<IPicturePeer> MakePicturePeer(QWidget& widget, const Pictures& pictures) {
    return std::make_unique<PicturePeer>(widget, pictures);
}

std::unique_ptr<IButtonPeer> MakeButtonPeer(QWidget& widget, ButtonPeerEvents events) {
    return std::make_unique<ButtonPeer>(widget, std::move(events));
}

std::unique_ptr<ICheckBoxPeer> MakeCheckBoxPeer(QWidget& widget, CheckBoxPeerEvents events) {
    return std::make_unique<CheckBoxPeer>(widget, std::move(events));
}

}  // namespace corvane::linux_desktop
