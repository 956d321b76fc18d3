// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_runtime.h"

#include "platform/error.h"

namespace corvane::simulated {

SimulatedRuntime::SimulatedRuntime(CallRecord& record) : record_(record) {}

void SimulatedRuntime::SendKeys(const std::string& keys, bool wait) {
    record_.Call("SendKeys", keys + (wait ? " wait" : ""));
}

void SimulatedRuntime::Shell(const std::string& path, ShellWindowStyle style) {
    record_.Call("Shell", path + " " + std::to_string(style));
    if (!installed_.contains(path)) throw RuntimeError(kFileNotFound, "File not found: " + path);
    started_.push_back(path);
}

std::string SimulatedRuntime::ExecutableFolder() const {
    record_.Quietly("ExecutableFolder");
    return folder_;
}

MsgBoxResult SimulatedRuntime::MsgBox(const std::string& prompt, MsgBoxStyle style,
                                      const std::string& title) {
    record_.Call("MsgBox", "\"" + prompt + "\" " + std::to_string(style) + " \"" + title + "\"");
    OnMsgBox();
    return style == kYesNoQuestion ? AnswerToQuestions : kOk;
}

void SimulatedRuntime::ShowErrorReport(std::int32_t number, const std::string& text) {
    record_.Call("ShowErrorReport", std::to_string(number) + " " + text);
}

void SimulatedRuntime::End() {
    record_.Call("End");
    ended_ = true;
    throw ProcessEnded();
}

}  // namespace corvane::simulated
