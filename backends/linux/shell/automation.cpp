// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/shell/automation.h"

#include <QDesktopServices>
#include <QUrl>

#include "platform/error.h"

namespace corvane::linux_desktop {
namespace {

class Browser final : public IInternetExplorer {
public:
    void SetVisible(bool /*visible*/) override {}

    void Navigate2(const std::string& url) override {
        const QUrl page =
            QUrl::fromUserInput(QString::fromStdString(url), QString(), QUrl::AssumeLocalFile);
        if (!QDesktopServices::openUrl(page))
            throw RuntimeError(kAutomationError, "There is no browser to open " + url);
    }
};

}  // namespace

std::shared_ptr<IInternetExplorer> Automation::CreateInternetExplorer(
    InternetExplorerEvents /*events*/) {
    return std::make_shared<Browser>();
}

}  // namespace corvane::linux_desktop
