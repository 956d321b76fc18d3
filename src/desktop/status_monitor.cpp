// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/status_monitor.h"

#include <array>
#include <string_view>

#include "runtime/arithmetic.h"
#include "runtime/text.h"

namespace corvane {
namespace {

struct KindOfConnection {
    std::uint32_t flag;
    std::string_view words;
    std::int32_t picture;  ///< of ImageList2
};

// In the order in which the words pile up; the last one that is set decides the picture. A proxy
// has none of its own.
constexpr std::array<KindOfConnection, 4> kKinds{{
    {INTERNET_CONNECTION_MODEM, " via modem", 1},
    {INTERNET_CONNECTION_LAN, " via LAN", 2},
    {INTERNET_CONNECTION_PROXY, " using a Proxy", 2},
    {INTERNET_CONNECTION_MODEM_BUSY, " via Modem -line busy", 3},
}};
constexpr std::int32_t kNoConnection = 4;

}  // namespace

StatusMonitor::StatusMonitor(const ILanguageRuntime& runtime, IKernel32& kernel32,
                             IWinInet& wininet, SystemCommands& system,
                             forms::Lazy<Form2>& main_window)
    : runtime_(runtime),
      kernel32_(kernel32),
      wininet_(wininet),
      system_(system),
      form2_(main_window) {}

void StatusMonitor::Timer1_Timer() {
    const std::string drive = Left(runtime_.ExecutableFolder(), 1);
    const Currency percent = system_.DiskFreePercent(drive);
    MEMORYSTATUS memory;
    kernel32_.GlobalMemoryStatus(memory);
    form2_->bkCProg1.SetValue(CLng(percent));
    const double share =
        Divide(static_cast<double>(memory.dwAvailPhys), static_cast<double>(memory.dwTotalPhys));
    form2_->bkCProg2.SetValue(Round(Finite(share * 100)));
    std::uint32_t flags = 0;
    const bool connected = wininet_.InternetGetConnectedState(flags, 0);
    ShowConnection(connected, flags);
}

void StatusMonitor::ShowConnection(bool connected, std::uint32_t flags) {
    forms::Label& words = form2_->Label7;
    if (connected) {
        words.SetCaption("Connection");  // the picture of the last tick stays
    } else {
        words.SetCaption("Disconnected");
        form2_->Picture2.SetPicture(form2_->ImageList2.Picture(kNoConnection));
    }
    // Each by itself, and whether connected or not: flags may come with no connection.
    for (const KindOfConnection& kind : kKinds) {
        if ((flags & kind.flag) == 0) continue;
        words.SetCaption(words.Caption() + std::string(kind.words));
        form2_->Picture2.SetPicture(form2_->ImageList2.Picture(kind.picture));
    }
}

}  // namespace corvane
