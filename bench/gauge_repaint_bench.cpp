// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>

#include "gauge/bkcprog.h"
#include "linux/canvas/control_view.h"
#include "linux/windows/control_handles.h"
#include "linux/windows/user32.h"

namespace corvane {
namespace {

using namespace linux_desktop;

/// A full dial of 361 spokes in the main window's size, each in its own colour.
void Repaint(benchmark::State& state) {
    const bool shaped = state.range(0) != 0;
    QWidget window;
    ControlView view(&window);
    Gdi gdi;
    const ControlHandles controls;
    User32 user32(MakeSessionWindows(), controls, gdi);
    bkCProg gauge(std::make_unique<QtControlHost>(gdi, view), gdi, user32);
    gauge.ReadProperties({});
    gauge.UserControl.SetSize(1485, 1320);
    gauge.SetShowValueAsPercent(true);
    gauge.SetTextShadow(true);
    gauge.SetValue(100);
    gauge.SetAutoMask(shaped);
    window.show();
    QApplication::processEvents();
    for ([[maybe_unused]] const auto iteration : state) gauge.Repaint();
    state.SetLabel(shaped ? "shaped" : "opaque");
}

BENCHMARK(Repaint)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace corvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
