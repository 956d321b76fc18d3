// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated/simulated_runtime.h"

#include "platform/error.h"

namespace corvane::simulated {

using namespace std::chrono;

SimulatedRuntime::SimulatedRuntime(CallRecord& record,
                                   std::function<std::chrono::milliseconds()> elapsed)
    : record_(record),
      elapsed_(std::move(elapsed)),
      clock_(sys_days(2001y / November / 20) + 15h + 5min),
      date_names_{.weekdays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday",
                               "Saturday"},
                  .short_months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep",
                                   "Oct", "Nov", "Dec"},
                  .am = "AM",
                  .pm = "PM"} {}

DateTime SimulatedRuntime::Now() const {
    record_.Quietly("Now");
    const auto now = floor<seconds>(clock_ + elapsed_());
    const auto today = floor<days>(now);
    const year_month_day date(today);
    const hh_mm_ss time(now - today);
    return {.year = static_cast<int>(date.year()),
            .month = static_cast<int>(static_cast<unsigned>(date.month())),
            .day = static_cast<int>(static_cast<unsigned>(date.day())),
            .weekday = static_cast<int>(weekday(today).c_encoding()) + 1,
            .hour = static_cast<int>(time.hours().count()),
            .minute = static_cast<int>(time.minutes().count())};
}

void SimulatedRuntime::SendKeys(const std::string& keys, bool wait) {
    record_.Call("SendKeys", keys + (wait ? " wait" : ""));
    OnSendKeys(keys);
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

std::string SimulatedRuntime::InputBox(const std::string& prompt, const std::string& title) {
    record_.Call("InputBox", "\"" + prompt + "\" \"" + title + "\"");
    const auto answer = OnInputBox;  // a copy: the person may do something else the next time
    return answer();
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
