// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "linux/locale_dates.h"
#include "linux/session/keys.h"
#include "platform/language_runtime.h"

namespace corvane::linux_desktop {

/// Keys, programs, the date and the process itself.
class LinuxRuntime final : public ILanguageRuntime {
public:
    /// Raises kPathNotFound where the executable can't be found.
    explicit LinuxRuntime(std::unique_ptr<Keys> keys);

    void SendKeys(const std::string& keys, bool wait) override;
    void Shell(const std::string& path, ShellWindowStyle style) override;
    [[nodiscard]] std::string ExecutableFolder() const override { return executable_folder_; }
    [[nodiscard]] char PathSeparator() const override { return '/'; }
    [[nodiscard]] DateTime Now() const override { return LocalNow(); }
    [[nodiscard]] DateNames LocaleDateNames() const override { return NamesOfLocale(); }
    MsgBoxResult MsgBox(const std::string& prompt, MsgBoxStyle style,
                        const std::string& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;
    void ShowErrorReport(std::int32_t number, const std::string& text) override;
    [[noreturn]] void End() override;

private:
    std::unique_ptr<Keys> keys_;
    std::string executable_folder_;
};

}  // namespace corvane::linux_desktop
