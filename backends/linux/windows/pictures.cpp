// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/pictures.h"

#include <QDir>
#include <utility>

namespace corvane::linux_desktop {

Pictures::Pictures(QString folder) : folder_(std::move(folder)) {}

QIcon Pictures::Find(const QString& name) const {
    QIcon picture;
    const QDir folder(folder_);
    if (name.isEmpty()) return picture;
    for (const QString& file : folder.entryList({name + ".png", name + "-*.png"}, QDir::Files)) {
        bool is_size = false;
        (void)file.chopped(4).mid(name.size() + 1).toUInt(&is_size);
        if (is_size || file.size() == name.size() + 4) picture.addFile(folder.filePath(file));
    }
    return picture;
}

}  // namespace corvane::linux_desktop
