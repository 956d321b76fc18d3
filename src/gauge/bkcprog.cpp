// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "gauge/bkcprog.h"

#include <utility>

#include "gauge/painting.h"

namespace corvane {

using forms::Backing;
using forms::ControlBorder;
using forms::PictureSurface;

bkCProg::bkCProg(std::unique_ptr<IControlHost> host, IGdi32& gdi, IUser32& user32)
    : host_(std::move(host)),
      UserControl(*host_),
      gdi_(gdi),
      user32_(user32),
      picStretch(*host_, PictureSurface::Sizing::ByOwner),
      picBack(*host_, PictureSurface::Sizing::ByPicture),
      picMask(*host_, PictureSurface::Sizing::ByPicture) {
    UserControl.Resize = [this] { UserControl_Resize(); };
}

void bkCProg::Repaint() {
    GaugePainting(state_, UserControl, gdi_).Repaint();
}

// Properties that live on the surfaces. The others are in assignments.cpp.

void bkCProg::SetBackColor(Long lBackColor) {
    UserControl.SetBackColor(lBackColor.rep());
    if (state_.AutoMask) UserControl.SetMaskColor(lBackColor.rep());
    Repaint();
    PropertyChanged("BackColor");
}

void bkCProg::SetFont(const StdFont& oFont) {
    UserControl.SetFont(oFont);
    Repaint();
    PropertyChanged("Font");
}

Boolean bkCProg::Inset() const {
    return UserControl.BorderStyle() == ControlBorder::Sunken;
}

void bkCProg::SetInset(Boolean blnInset) {
    UserControl.SetBorderStyle(blnInset ? ControlBorder::Sunken : ControlBorder::None);
    PropertyChanged("Inset");
}

void bkCProg::SetMaskColor(Long lMaskColor) {
    UserControl.SetMaskColor(lMaskColor.rep());
    PropertyChanged("MaskColor");
}

void bkCProg::SetMaskPicture(const corvane::Picture& pMaskPicture) {
    picMask.SetPicture(pMaskPicture);
    if (picMask.HoldsPicture())
        StretchPictures();
    else
        UserControl.SetMaskPicture(nullptr);
    Repaint();
    PropertyChanged("MaskPicture");
}

void bkCProg::SetPicture(const corvane::Picture& pPicture) {
    picBack.SetPicture(pPicture);
    if (picBack.HoldsPicture())
        StretchPictures();
    else
        UserControl.SetPicture(nullptr);
    Repaint();
    PropertyChanged("Picture");
}

Boolean bkCProg::UseMask() const {
    return UserControl.BackStyle() == Backing::Transparent;
}

void bkCProg::SetUseMask(Boolean bUseMask) {
    UserControl.SetBackStyle(bUseMask || state_.AutoMask ? Backing::Transparent : Backing::Opaque);
    PropertyChanged("UseMask");
}

void bkCProg::RepaintIf(bool visible) {
    if (visible) Repaint();
}

void bkCProg::PropertyChanged(std::string_view key) const {
    if (const auto handler = UserControl.PropertyChanged) handler(key);
}

}  // namespace corvane
