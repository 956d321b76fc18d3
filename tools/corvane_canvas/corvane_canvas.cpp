// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws lists of canvas operations on the program's own canvas, one picture a list.
//
// usage: corvane-canvas [-o FOLDER] LIST.ops...
//
// One operation a line: Size w h, Cls colour, ForeColor colour, DrawWidth n, FillColor colour,
// FillStyle n, MoveToEx x y, LineTo x y, Ellipse l t r b, Rectangle l t r b,
// Arc l t r b xStart yStart xEnd yEnd, TextOutA x y "text" length. Colours are 0xBBGGRR, system
// colours 0x80000000 and their index. The picture of NAME.ops is NAME.png, in FOLDER or here.
#include <QApplication>
#include <QImage>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "linux/canvas/canvas.h"

namespace {

using namespace corvane;
using linux_desktop::Canvas;
using linux_desktop::Gdi;

/// A line of a list: its operation, its numbers, and the text in quotes if it has one.
struct Call {
    std::string operation;
    std::vector<std::int32_t> numbers;
    std::string text;
};

std::optional<std::int32_t> Number(std::string_view word) {
    const bool hexadecimal = word.starts_with("0x");
    if (hexadecimal) word.remove_prefix(2);
    std::int64_t value = 0;
    const auto [end, error] =
        std::from_chars(word.data(), word.data() + word.size(), value, hexadecimal ? 16 : 10);
    const bool whole = error == std::errc() && end == word.data() + word.size();
    if (!whole || value < INT32_MIN || value > UINT32_MAX) return std::nullopt;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

std::optional<Call> Parse(std::string line) {
    Call call;
    const std::size_t open = line.find('"');
    const std::size_t close = line.rfind('"');
    if (open != std::string::npos && close > open) {
        call.text = line.substr(open + 1, close - open - 1);
        line.erase(open, close - open + 1);
    }
    std::istringstream words(line);
    words >> call.operation;
    for (std::string word; words >> word;) {
        const auto number = Number(word);
        if (!number) return std::nullopt;
        call.numbers.push_back(*number);
    }
    return call;
}

struct Operation {
    std::size_t numbers;
    std::function<void(Gdi&, Canvas&, const std::vector<std::int32_t>&, const std::string&)> run;
};

const std::map<std::string, Operation>& Operations() {
    using Numbers = const std::vector<std::int32_t>&;
    using Text = const std::string&;
    static const std::map<std::string, Operation> operations{
        {"Size",
         {2,
          [](Gdi&, Canvas& c, Numbers n, Text) {
              c.SetSize({n[0], n[1]});
          }}},
        {"Cls", {1, [](Gdi&, Canvas& c, Numbers n, Text) { c.Cls(n[0]); }}},
        {"ForeColor", {1, [](Gdi&, Canvas& c, Numbers n, Text) { c.SetForeColor(n[0]); }}},
        {"DrawWidth", {1, [](Gdi&, Canvas& c, Numbers n, Text) { c.SetDrawWidth(n[0]); }}},
        {"FillColor", {1, [](Gdi&, Canvas& c, Numbers n, Text) { c.SetFillColor(n[0]); }}},
        {"FillStyle",
         {1, [](Gdi&, Canvas& c, Numbers n,
                Text) { c.SetFillStyle(n[0] == 0 ? kSolidFill : kTransparentFill); }}},
        {"MoveToEx",
         {2, [](Gdi& g, Canvas& c, Numbers n, Text) { g.MoveToEx(c.hDC(), n[0], n[1], nullptr); }}},
        {"LineTo", {2, [](Gdi& g, Canvas& c, Numbers n, Text) { g.LineTo(c.hDC(), n[0], n[1]); }}},
        {"Ellipse",
         {4,
          [](Gdi& g, Canvas& c, Numbers n, Text) { g.Ellipse(c.hDC(), n[0], n[1], n[2], n[3]); }}},
        {"Rectangle",
         {4, [](Gdi& g, Canvas& c, Numbers n,
                Text) { g.Rectangle(c.hDC(), n[0], n[1], n[2], n[3]); }}},
        {"Arc",
         {8, [](Gdi& g, Canvas& c, Numbers n,
                Text) { g.Arc(c.hDC(), n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7]); }}},
        {"TextOutA",
         {3,
          [](Gdi& g, Canvas& c, Numbers n, Text t) { g.TextOutA(c.hDC(), n[0], n[1], t, n[2]); }}},
    };
    return operations;
}

/// Whether the list could be drawn; says why not.
bool Draw(const std::filesystem::path& list, const std::filesystem::path& picture) {
    std::ifstream file(list);
    if (!file) {
        std::cerr << "corvane-canvas: " << list.string() << " cannot be read\n";
        return false;
    }
    Gdi gdi;
    Canvas canvas(gdi);
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.empty()) continue;
        const auto call = Parse(line);
        const auto operation = call ? Operations().find(call->operation) : Operations().end();
        constexpr std::int32_t kLargest = 16384;
        const bool known = operation != Operations().end() &&
                           call->numbers.size() == operation->second.numbers &&
                           (call->operation != "Size" ||
                            (call->numbers[0] <= kLargest && call->numbers[1] <= kLargest));
        if (!known) {
            std::cerr << "corvane-canvas: " << list.string() << ":" << number
                      << ": no such operation: " << line << "\n";
            return false;
        }
        operation->second.run(gdi, canvas, call->numbers, call->text);
    }
    if (canvas.Shown().save(QString::fromStdString(picture.string()), "PNG")) return true;
    std::cerr << "corvane-canvas: " << picture.string() << " cannot be written\n";
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::filesystem::path folder = ".";
    std::vector<std::filesystem::path> lists;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "-o" && i + 1 < argc)
            folder = argv[++i];
        else
            lists.emplace_back(argument);
    }
    if (lists.empty()) {
        std::cerr << "usage: corvane-canvas [-o FOLDER] LIST.ops...\n";
        return 2;
    }
    std::error_code exists;
    std::filesystem::create_directories(folder, exists);
    bool all = true;
    for (const auto& list : lists)
        all = Draw(list, folder / (list.stem().string() + ".png")) && all;
    return all ? 0 : 1;
}
