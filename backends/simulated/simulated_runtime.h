// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/language_runtime.h"
#include "simulated/call_record.h"

namespace corvane::simulated {

/// The end of the simulated process. It is no failure and nothing in the system catches it.
struct ProcessEnded {};

/// Keys, programs, the date and the process itself. Operations that can be told to fail: SendKeys,
/// Shell, ExecutableFolder, Now, MsgBox, InputBox.
class SimulatedRuntime final : public ILanguageRuntime {
public:
    /// `elapsed` tells the virtual time.
    SimulatedRuntime(CallRecord& record, std::function<std::chrono::milliseconds()> elapsed);

    void SendKeys(const std::string& keys, bool wait) override;
    void Shell(const std::string& path, ShellWindowStyle style) override;
    std::string ExecutableFolder() const override;
    char PathSeparator() const override { return '/'; }
    DateTime Now() const override;
    DateNames LocaleDateNames() const override { return date_names_; }
    MsgBoxResult MsgBox(const std::string& prompt, MsgBoxStyle style,
                        const std::string& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;
    void ShowErrorReport(std::int32_t number, const std::string& text) override;
    [[noreturn]] void End() override;

    /// What a person does while a message box stands there; nothing at first.
    std::function<void()> OnMsgBox = [] {};
    /// What a person answers to a question; any other message is acknowledged by OK.
    MsgBoxResult AnswerToQuestions = kYes;

    /// What a person enters into an input box, and does while it stands there; cancels at first.
    std::function<std::string()> OnInputBox = [] { return std::string(); };

    /// Where keys go; on a whole desktop, to the program of the window in front.
    std::function<void(const std::string& keys)> OnSendKeys = [](const std::string&) {};

    /// What the clock shows when the virtual time is 0: Tuesday, 20 November 2001, 15:05 at first.
    void SetClock(std::chrono::sys_seconds clock) { clock_ = clock; }
    /// American at first.
    void SetDateNames(DateNames names) { date_names_ = std::move(names); }
    /// Where the program is installed; "/opt/corvane" at first.
    void SetExecutableFolder(std::string folder) { folder_ = std::move(folder); }
    /// Makes a command line startable.
    void Install(const std::string& program) { installed_.insert(program); }
    /// What was started since the start or the last ForgetStarted, in order.
    [[nodiscard]] const std::vector<std::string>& Started() const { return started_; }
    void ForgetStarted() { started_.clear(); }
    [[nodiscard]] bool Ended() const { return ended_; }

private:
    CallRecord& record_;
    std::function<std::chrono::milliseconds()> elapsed_;
    std::chrono::sys_seconds clock_;
    DateNames date_names_;
    std::string folder_ = "/opt/corvane";
    std::set<std::string> installed_;
    std::vector<std::string> started_;
    bool ended_ = false;
};

}  // namespace corvane::simulated
