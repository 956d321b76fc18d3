// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/printing/printer.h"

#include "platform/error.h"

namespace corvane::linux_desktop {
namespace {

[[noreturn]] void Refuse() {
    throw RuntimeError(kPrinterError, "Printer error");
}

}  // namespace

void Printer::Print(const std::string& /*text*/) {
    Refuse();
}

void Printer::SetScaleMode(ScaleMode /*mode*/) {}

float Printer::ScaleX(float /*width*/, ScaleMode /*from*/, ScaleMode /*to*/) const {
    Refuse();
}

float Printer::ScaleY(float /*height*/, ScaleMode /*from*/, ScaleMode /*to*/) const {
    Refuse();
}

Twips Printer::Width() const {
    Refuse();
}

Twips Printer::Height() const {
    Refuse();
}

float Printer::ScaleWidth() const {
    Refuse();
}

float Printer::ScaleHeight() const {
    Refuse();
}

HDC Printer::hDC() const {
    Refuse();
}

void Printer::NewPage() {
    Refuse();
}

void Printer::EndDoc() {
    Refuse();
}

}  // namespace corvane::linux_desktop
