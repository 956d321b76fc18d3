// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

namespace corvane::linux_desktop {

/// The program's pictures: files `<name>.png`, or `<name>-<pixels>.png` for each size.
class Pictures {
public:
    /// `folder` need not exist.
    explicit Pictures(QString folder);

    /// The picture in all its sizes; null if there is none of that name.
    [[nodiscard]] QIcon Find(const QString& name) const;
    /// What every window and the tray show.
    [[nodiscard]] QIcon ProgramIcon() const { return Find(QStringLiteral("corvane")); }

private:
    QString folder_;
};

}  // namespace corvane::linux_desktop
