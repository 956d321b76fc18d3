// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "linux/session/keys.h"
#include "platform/language_runtime.h"

namespace corvane::linux_desktop {

/// Keys, programs and the process itself.
class LinuxRuntime final : public ILanguageRuntime {
public:
    explicit LinuxRuntime(std::unique_ptr<Keys> keys);

    void SendKeys(const std::string& keys, bool wait) override;
    void Shell(const std::string& path, ShellWindowStyle style) override;
    [[nodiscard]] std::string ExecutableFolder() const override;
    [[nodiscard]] char PathSeparator() const override { return '/'; }
    MsgBoxResult MsgBox(const std::string& prompt, MsgBoxStyle style,
                        const std::string& title) override;
    void ShowErrorReport(std::int32_t number, const std::string& text) override;
    [[noreturn]] void End() override;

private:
    std::unique_ptr<Keys> keys_;
};

}  // namespace corvane::linux_desktop
