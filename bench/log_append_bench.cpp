// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>
#include <string>

#include "core/text_log.h"
#include "linux/linux_runtime.h"
#include "linux/qt_message_queue.h"
#include "linux/windows/qt_toolkit.h"
#include "linux/windows/user32.h"
#include "runtime/message_loop.h"
#include "shell/form2.h"

namespace corvane {
namespace {

const std::string kLine = "1, 98304, Recognition,  [Text=what time is it] [Confidence=1]\r\n";

/// The main window off screen, with its log.
class Desk {
public:
    explicit Desk(std::int64_t lines) {
        std::string text;
        for (std::int64_t i = 0; i < lines; ++i) text += kLine;
        main_window_->Text1.SetText(text);
        main_window_->Show();
        QApplication::processEvents();
    }

    TextLog log{main_window_};

private:
    linux_desktop::QtMessageQueue messages_;
    linux_desktop::QtToolkit windows_{{}};
    linux_desktop::User32 user32_{linux_desktop::MakeSessionWindows(), windows_.Controls(),
                                  windows_.Gdi32()};
    linux_desktop::LinuxRuntime runtime_{nullptr};  // no keys are typed here
    MessageLoop loop_{messages_, runtime_};
    forms::Lazy<Form2> main_window_{[this] {
        return std::make_shared<Form2>(windows_, loop_, runtime_, windows_.Gdi32(), user32_);
    }};
};

/// One line behind so many others, until the person sees it.
void AppendLine(benchmark::State& state) {
    Desk desk(state.range(0));
    for ([[maybe_unused]] const auto iteration : state) {
        desk.log.Append(kLine);
        QApplication::processEvents();
    }
}

BENCHMARK(AppendLine)->Arg(0)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(200);

}  // namespace
}  // namespace corvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
