// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
//
// Starts an installed program. It looks for its data files beside itself and writes what it is
// taught there, so each person has a folder with files of their own, in which the executable lies
// as a link.
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QStandardPaths>
#include <QString>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "app/launcher/first_training.h"
#include "app/lay_out/lay_out.h"
#include "linux/display.h"
#include "linux/settings/registry.h"

namespace {

namespace fs = std::filesystem;
using corvane::LayOutFailed;
using corvane::linux_desktop::Registry;

/// What all people share: the executable, and the data files as they are delivered.
fs::path InstalledFolder() {
    return fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "lib" / "corvane";
}

/// Below the folder in which the engine keeps a person's voice and words.
fs::path FolderOfPerson() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return fs::path(data.toStdString()) / "corvane" / "program";
}

void WriteLine(const std::string& text) {
    std::cerr << "KT Corvane: " << text << '\n' << std::flush;
}

/// Whoever starts the program from a menu sees no terminal, so a window says it too.
int Refuse(const std::string& what, const std::string& why, int argc, char** argv) {
    WriteLine(what + ' ' + why);
    corvane::linux_desktop::RequireDisplay();
    const QApplication application(argc, argv);
    QMessageBox box(QMessageBox::Critical, "KT Corvane",
                    QString::fromStdString(what + "\n\n" + why));
    box.setTextFormat(Qt::PlainText);
    box.exec();
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    const fs::path installed = InstalledFolder();
    const fs::path own = FolderOfPerson();
    corvane::DataFiles files;
    try {
        files = corvane::FilesUnder(installed / "data");
    } catch (const LayOutFailed& failure) {
        return Refuse("KT Corvane is not installed as a whole. Install it again.", failure.what(),
                      argc, argv);
    }
    try {
        corvane::LayOutProgram(
            files, {.data = installed / "data", .executable = installed / "corvane"}, own);
    } catch (const LayOutFailed& failure) {
        // The files of the version before are better than no program for who has no other hands.
        if (!corvane::AreLaidOut(files, own) || !corvane::AreLaidOut({"corvane"}, own))
            return Refuse(
                "KT Corvane can't lay its files out for you. It needs a folder that can be "
                "written to, on a disk with room.",
                failure.what(), argc, argv);
        WriteLine(std::string("A file could not be renewed; the old one stays. ") + failure.what());
    }
    // At each start: whatever has kept an earlier one from asking, the training is still due.
    Registry registry(Registry::FileOfPerson());
    corvane::AskForFirstTraining(registry);
    ::execv((own / "corvane").c_str(), argv);
    const std::string reason = std::generic_category().message(errno);
    return Refuse("KT Corvane can't be started.", (installed / "corvane").string() + ": " + reason,
                  argc, argv);
}
