// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// A window of another program that is typed into: one line of text, written to a file as it stands.
//
// usage: typing_field TITLE FILE
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <cstdio>

namespace {

void Write(const QString& text, const QString& file) {
    QFile part(file + ".part");
    if (!part.open(QIODevice::WriteOnly)) return;
    part.write(text.toUtf8());
    part.close();
    // Whoever reads it finds one state or the other.
    std::rename(part.fileName().toLocal8Bit().constData(), file.toLocal8Bit().constData());
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QString file = QApplication::arguments().at(2);
    QLineEdit field;
    field.setWindowTitle(QApplication::arguments().at(1));
    QObject::connect(&field, &QLineEdit::textChanged,
                     [&](const QString& text) { Write(text, file); });
    field.show();
    field.activateWindow();
    Write({}, file);
    return QApplication::exec();
}
