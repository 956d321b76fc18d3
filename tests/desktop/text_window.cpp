// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later

// Another program with a text in it: text_window TITLE TEXT. Nothing in it is highlighted.

#include <QApplication>
#include <QPlainTextEdit>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 3) return 2;
    QPlainTextEdit text(QString::fromUtf8(argv[2]));
    text.setWindowTitle(QString::fromUtf8(argv[1]));
    text.resize(400, 200);
    text.show();
    return QApplication::exec();
}
