// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/system/emptying_window.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLocale>
#include <QProgressBar>
#include <QProgressDialog>
#include <QTimer>
#include <chrono>

#include "linux/windows/put_over.h"

namespace corvane::linux_desktop {
namespace {

constexpr int kFull = 1000;

void ShowProgress(const Emptying& emptying, QProgressDialog& window) {
    const std::int64_t things = emptying.things;
    // Before they have been counted nobody knows how much there is to do.
    window.setRange(0, things == 0 ? 0 : kFull);
    if (things != 0) window.setValue(static_cast<int>(emptying.things_done * kFull / things));
    const qlonglong removed = emptying.files_removed;
    window.setLabelText(QStringLiteral("Emptying the recycle bin\n%1 files and folders deleted")
                            .arg(QLocale().toString(removed)));
}

}  // namespace

void WaitWithWindow(Emptying& emptying, HWND owner, const std::function<bool()>& is_done) {
    constexpr std::chrono::milliseconds kBetweenLooks{50};
    constexpr std::chrono::seconds kPatienceOnceCancelled{5};
    QProgressDialog window;
    window.setWindowTitle(QStringLiteral("Recycle Bin"));
    window.setCancelButtonText(QStringLiteral("Cancel"));
    window.findChild<QProgressBar*>()->setAccessibleName(QStringLiteral("Emptied"));
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.setAutoReset(false);
    window.setAutoClose(false);
    QDeadlineTimer patience(QDeadlineTimer::Forever);
    QObject::connect(&window, &QProgressDialog::canceled, &window, [&] {
        emptying.cancelled = true;
        patience.setRemainingTime(kPatienceOnceCancelled);
    });
    PutOver(owner, window);
    ShowProgress(emptying, window);
    window.show();

    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (is_done() || patience.hasExpired()) return loop.quit();
        if (!window.wasCanceled()) ShowProgress(emptying, window);
    });
    look.start(kBetweenLooks);
    loop.exec();
}

}  // namespace corvane::linux_desktop
