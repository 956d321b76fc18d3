// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <exception>
#include <iostream>

#include "app/lay_out/lay_out.h"

/// corvane-lay-out FROM TO FILE...: lays the data files out beside a program that has been built,
/// as the launcher of an installed one does for whoever starts it.
int main(int argc, char** argv) try {
    if (argc < 3) {
        std::cerr << "usage: corvane-lay-out FROM TO FILE...\n";
        return 2;
    }
    corvane::LayOut(corvane::DataFiles(argv + 3, argv + argc), argv[1], argv[2]);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "corvane-lay-out: " << error.what() << '\n';
    return 1;
}
