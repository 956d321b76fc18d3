// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

/// What the system's language asks of the world at run time: keys, programs, the clipboard, the
/// date, its own place, its end, and the queue of messages by which everything reaches it.
namespace corvane {

/// Window style of a started program.
enum ShellWindowStyle : std::int32_t { kNormalFocus = 1 };

/// Buttons and icon of a message.
enum MsgBoxStyle : std::int32_t {
    kOkOnly = 0,
    kCritical = 16,       ///< OK, under the icon of an error
    kYesNoQuestion = 36,  ///< Yes and No, under a question mark
};

enum MsgBoxResult : std::int32_t { kOk = 1, kYes = 6, kNo = 7 };

/// A moment as the wall clock and the calendar of this place show it.
struct DateTime {
    int year = 1900;
    int month = 1;    ///< 1 to 12
    int day = 1;      ///< 1 to 31
    int weekday = 2;  ///< 1 is Sunday, 7 Saturday
    int hour = 0;     ///< 0 to 23
    int minute = 0;   ///< 0 to 59
    friend bool operator==(const DateTime&, const DateTime&) = default;
};

/// What the person's locale calls days, months and the halves of a day. None of them is empty.
struct DateNames {
    std::array<std::string, 7> weekdays;       ///< in full, Sunday first
    std::array<std::string, 12> short_months;  ///< abbreviated, January first
    std::string am;                            ///< the half before noon, in capitals
    std::string pm;                            ///< the half from noon on, in capitals
};

class ILanguageRuntime {
public:
    virtual ~ILanguageRuntime() = default;

    /// Types into whatever window has the focus. `keys` is in key notation: a plain character is
    /// that key, whatever the keyboard's layout and Caps Lock; "~" is Enter; "^", "+" and "%" in
    /// front of a key or a group "(...)" hold Ctrl, Shift and Alt; "{ESC}" and "{ENTER}" name a
    /// key, "{LEFT 3}" one that is struck three times, "{+}" a character that means something else
    /// by itself. With `wait` the call returns when the keys have been processed, or, if the
    /// program hangs, after a bounded time. Bad notation raises kInvalidProcedureCall and types
    /// nothing.
    virtual void SendKeys(const std::string& keys, bool wait) = 0;

    /// Starts the command line `path` in a window of the given style and returns at once. A program
    /// that can't be started, or an empty path, raises kFileNotFound.
    virtual void Shell(const std::string& path, ShellWindowStyle style) = 0;

    /// Folder of the program's executable, absolute, without a separator at its end unless it is a
    /// root.
    [[nodiscard]] virtual std::string ExecutableFolder() const = 0;

    /// What parts the names in a path.
    [[nodiscard]] virtual char PathSeparator() const = 0;

    /// The present moment, in the time zone that is in force.
    [[nodiscard]] virtual DateTime Now() const = 0;

    /// The names of the locale that is in force.
    [[nodiscard]] virtual DateNames LocaleDateNames() const = 0;

    /// Shows a message with the buttons of that style, modal: messages run meanwhile. Lines of the
    /// prompt end in CR LF; an empty title is the program's name. Returns the button that was
    /// pressed, No for a question that was closed by its frame.
    virtual MsgBoxResult MsgBox(const std::string& prompt, MsgBoxStyle style,
                                const std::string& title) = 0;

    /// Asks a person for one line of text, modal: messages run meanwhile. What was entered, empty
    /// when the person cancels or closes the box.
    [[nodiscard]] virtual std::string InputBox(const std::string& prompt,
                                               const std::string& title) = 0;

    /// Shows the report of an error that no handler has trapped; returns when it was acknowledged.
    virtual void ShowErrorReport(std::int32_t number, const std::string& text) = 0;

    /// Ends the process on the spot: no window is unloaded, nothing is unwound.
    [[noreturn]] virtual void End() = 0;
};

/// The clipboard that all programs of the desktop share. No message runs inside its calls.
class IClipboard {
public:
    virtual ~IClipboard() = default;

    /// Its text without any format, lines parted by CR LF. Empty when it holds no text, also when
    /// the program that keeps the text does not hand it over within a second.
    [[nodiscard]] virtual std::string GetText() = 0;

    /// Rises whenever a program puts something there, be it the same text again; so two equal
    /// answers mean that nothing was copied in between.
    [[nodiscard]] virtual std::uint32_t SequenceNumber() = 0;
};

/// The queue of the one thread on which the system runs.
class IMessageQueue {
public:
    using Message = std::function<void()>;

    virtual ~IMessageQueue() = default;

    /// Puts a message at the end of the queue. May be called from any thread; all else here is for
    /// the loop's own.
    virtual void Post(Message message) = 0;

    /// As Post, once `delay` has passed.
    virtual void PostAfter(std::chrono::milliseconds delay, Message message) = 0;

    /// From now on every message is handed to `run` instead of being called directly, so that
    /// errors of handlers meet one boundary.
    virtual void DispatchThrough(std::function<void(const Message&)> run) = 0;

    /// Runs the messages that are ready, each taken off the queue before it runs, and returns. May
    /// be called from inside a message.
    virtual void DoEvents() = 0;

    /// Runs messages until the process ends; where time is only simulated, until nothing is ready.
    virtual void Run() = 0;
};

}  // namespace corvane
