// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Lets the engine hear sound files, see README.md beside this file.

#include <iostream>
#include <string>
#include <vector>

#include "arguments.h"
#include "hearing.h"
#include "platform/error.h"

int main(int argc, char** argv) {
    using namespace corvane::tools;
    const std::optional<Arguments> arguments = ArgumentsOf({argv + 1, argv + argc});
    if (!arguments) {
        std::cerr << kUsage;
        return 2;
    }
    int status = 0;
    for (const std::string& file : arguments->files) {
        try {
            Hear(file, *arguments);
        } catch (const corvane::RuntimeError& error) {
            std::cerr << "corvane-hear: " << file << ": " << error.what() << '\n';
            status = 1;
        }
    }
    return status;
}
