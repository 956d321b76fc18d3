// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>

#include "support/print_server.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    corvane::testing::HideOtherPrinters();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
