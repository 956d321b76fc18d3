// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Any bytes as the text of a control, put together piece by piece as a log is: the system and the
// control mean the same places in it.

#include <QString>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "linux/shown_text.h"
#include "linux/text_positions.h"
#include "require.h"

using namespace corvane::linux_desktop;
using corvane::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const QString shown = ControlText(text);
    const TextSize whole = SizeOf(text);
    Require(whole.units == shown.size(), "the control's text is as long as was reckoned");
    // A lone end of line becomes whole on its way, so only whole ones come back in their places.
    const std::string back = SystemText(shown);
    Require(ControlText(back) == shown, "what is shown stays what is shown");
    const TextSize again = SizeOf(back);
    Require(again.units == whole.units, "it stays as long");
    Require(SystemPosition(shown, again.units) == again.characters, "the end is the end");

    ShownText log;
    for (std::size_t end = 0; end <= size; end += std::max<std::size_t>(1, size / 8))
        log.Replace(text.substr(0, end));
    log.Replace(text);
    int last = 0;
    const std::int32_t step = std::max<std::int32_t>(1, whole.characters / 16);
    for (std::int32_t at = 0; at <= whole.characters; at += step) {
        const int place = ControlPosition(text, at);
        Require(place == log.ControlPosition(at), "a log knows its places");
        Require(place >= last && place <= whole.units, "places rise");
        last = place;
    }
    return 0;
}
