// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "core/application.h"
#include "linux/linux_platform.h"

int main(int argc, char** argv) {
    corvane::LinuxPlatform platform(argc, argv);
    corvane::Application application(platform.Parts());
    application.Run();
}
