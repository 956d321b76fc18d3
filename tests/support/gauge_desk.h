// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gauge/bkcprog.h"
#include "simulated/simulated_desktop.h"

namespace corvane::testing {

/// A gauge by itself, on a screen with those pitches, and all that can be seen of it.
class GaugeDesk {
public:
    explicit GaugeDesk(Twips across = 15, Twips down = 15)
        : shown(simulated::MakeShownControl(desktop.gdi, across, down)) {
        gauge.UserControl.PropertyChanged = [this](std::string_view key) {
            signals.emplace_back(key);
        };
        gauge.InitProperties();
    }

    simulated::SimulatedDesktop desktop;
    std::shared_ptr<simulated::ShownControl> shown;
    bkCProg gauge{std::make_unique<simulated::ControlPlace>(desktop.gdi, shown, 4001), desktop.gdi,
                  desktop.user32};
    std::vector<std::string> signals;  // keys, in the order they were told

    /// The calls that `act` leads to on the surface that is seen.
    template <class Act>
    std::string CallsOf(Act act) {
        shown->surface->StartRecording();
        act();
        return shown->surface->Recorded();
    }
    /// Whether `act` draws the gauge, and how often.
    template <class Act>
    int RepaintsOf(Act act) {
        return Count(CallsOf(act), "Cls ");
    }
    /// The gauge drawn anew.
    std::string Drawing() {
        gauge.Repaint();
        return shown->surface->Shown();
    }
    /// Lines that begin so.
    static int Count(const std::string& calls, const std::string& start) {
        int count = calls.starts_with(start) ? 1 : 0;
        for (std::size_t at = 0; (at = calls.find("\n" + start, at)) != std::string::npos; ++at)
            ++count;
        return count;
    }
    Picture SomePicture() { return shown_host().LoadPicture("a picture"); }

private:
    IControlHost& shown_host() { return gauge.UserControl.Host(); }
};

}  // namespace corvane::testing
