// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws the cases of files of gauge drawings anew. Read over what has changed before it is kept.
//
// usage: update_gauge_goldens FILE...
#include <fstream>
#include <iostream>
#include <iterator>

#include "support/gauge_golden.h"

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        std::ifstream file(argv[i]);
        auto cases =
            corvane::testing::ReadGaugeDrawings({std::istreambuf_iterator<char>(file), {}});
        for (auto& one : cases) one.calls = corvane::testing::CallsOfGauge(one.properties);
        std::ofstream(argv[i]) << corvane::testing::WriteGaugeDrawings(cases);
        std::cout << argv[i] << ": " << cases.size() << " drawings\n";
    }
}
