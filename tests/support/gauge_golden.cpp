// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "support/gauge_golden.h"

#include <sstream>

#include "support/gauge_desk.h"

namespace corvane::testing {
namespace {

PropertyValue ValueOf(const std::string& text) {
    if (text == "true") return Boolean(true);
    if (text == "false") return Boolean(false);
    if (text.find('.') != std::string::npos) return std::stod(text);
    const std::int64_t number = std::stoll(text, nullptr, 0);
    return Long(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)));
}

void ReplaceAll(std::string& text, const std::string& what, const std::string& with) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
}

}  // namespace

std::vector<GaugeDrawingCase> ReadGaugeDrawings(const std::string& text) {
    std::vector<GaugeDrawingCase> cases;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("= "))
            cases.push_back({line.substr(2), {}});
        else if (!cases.empty())
            cases.back().calls += line + "\n";
    }
    return cases;
}

std::string WriteGaugeDrawings(const std::vector<GaugeDrawingCase>& cases) {
    std::string text;
    for (const auto& one : cases) text += "= " + one.properties + "\n" + one.calls;
    return text;
}

std::string CallsOfGauge(const std::string& properties) {
    GaugeDesk desk;
    PropertyBag bag;
    std::istringstream words(properties);
    std::string size;
    words >> size;
    for (std::string word; words >> word;) {
        const std::size_t equals = word.find('=');
        bag.Put(word.substr(0, equals), ValueOf(word.substr(equals + 1)));
    }
    std::string error;
    try {
        desk.gauge.ReadProperties(bag);
    } catch (const RuntimeError&) {
        // Told by the drawing at its own size.
    }
    const std::size_t by = size.find('x');
    try {
        desk.gauge.UserControl.SetSize(static_cast<float>(std::stoi(size) * 15),
                                       static_cast<float>(std::stoi(size.substr(by + 1)) * 15));
    } catch (const RuntimeError& raised) {
        error = "error " + std::to_string(raised.number()) + "\n";
    }
    std::string calls = desk.shown->surface->Shown();
    ReplaceAll(calls, "\nMoveToEx", " | MoveToEx");
    ReplaceAll(calls, "\nLineTo", " | LineTo");
    return calls + error;
}

}  // namespace corvane::testing
