// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "runtime/forms/form.h"
#include "shell/form2.h"

namespace corvane {

/// What the voice says of a command.
struct CommandDescription {
    std::string_view key;      ///< the entry of the command list in lower case
    std::string_view opening;  ///< ends inside the tag of a pause whose length comes next
    std::string_view closing;  ///< closes that tag and goes on; empty: there is no pause
};

// To the letter: double blanks, missing full stops and odd words are as they were recorded.
// clang-format off
inline constexpr auto kCommandDescriptions = std::to_array<CommandDescription>({
    {"add program",
     "Add program opens the add programs dialog where you can add, remove, or lookup program shortcuhts.",
     ""},
    {"are you there",
     "Are you there <silence msec=",
     "/> notifies you whether or not speech recognition is listening and brings Corvane to the foreground"},
    {"calendar",
     "Calendar <silence msec=",
     "/> opens the calendar form.  From there you can view any month by saying its name."},
    {"clean whiteboard",
     "Clean whiteboard <silence msec=",
     "/> erases the contents of the Corvane whiteboard."},
    {"close",
     "Close <silence msec=",
     "/> closes the current window.  Close does not work for Corvane, use close corvane instead."},
    {"close corvane",
     "Close corvane <silence msec=",
     "/> closes Corvane."},
    {"connect",
     "Connect <silence msec=",
     "/> opens the Windows dialer and dials your default internet connection."},
    {"date",
     "Date <silence msec=",
     "/> gives today's date."},
    {"dictation",
     "Dictation <silence msec=",
     "/> starts the dictation engine.  This allows you to speak text into any application."},
    {"dictation pad",
     "Dictation pad <silence msec=",
     "/> opens the Corvane dictation pad, which allows you to write and print simple documents by voice."},
    {"disable",
     "Disable <silence msec=",
     "/> disables speech recognition until the enable command is issued."},
    {"disconnect",
     "Disconnect <silence msec=",
     "/> closes the dialup connection."},
    {"eject",
     "Eject <silence msec=",
     "/> opens and closes the cd rom tray."},
    {"enable",
     "Enable <silence msec=",
     "/> enables speech recognition when it is disabled."},
    {"freespace c",
     "Freespace c <silence msec=",
     "/> tells you the remaining percentage of freespace on the c drive.  You may use other letters in place of c to get the freespace on other drives such as the floppy drive or zip drives."},
    {"how much ram",
     "How much ram <silence msec=",
     "/> tells you how many megabytes of ram are installed on your pc."},
    {"maximize",
     "Maximize <silence msec=",
     "/> maximizes the current window."},
    {"minimize",
     "Minimize <silence msec=",
     "/> minimizes the current window."},
    {"normalize",
     "Normalize <silence msec=",
     "/> resizes the window to its normal default size."},
    {"quit dictation",
     "Quit dictation <silence msec=",
     "/> stops dictation and also closes the dictation pad when in use."},
    {"read all",
     "Read all <silence msec=",
     "/> reads all of the text in the current document."},
    {"read selected",
     "Read selected <silence msec=",
     "/> reads the currently highlighted text."},
    {"read whiteboard",
     "Read whiteboard <silence msec=",
     "/> reads the text on the whiteboard."},
    {"reboot",
     "Reboot <silence msec=",
     "/> reboots the computer."},
    {"recycle bin",
     "Recycle bin <silence msec=",
     "/> empties the recycle bin."},
    {"shutdown",
     "Shutdown <silence msec=",
     "/> shuts down Windows and powers off the computer."},
    {"time",
     "Time <silence msec=",
     "/> tells the current time."},
});
// clang-format on

/// The description as it is spoken: name, a pause of a tenth of a second, what it does.
[[nodiscard]] std::string SpokenDescription(const CommandDescription& command);

/// The command list, which says what each of its entries does.
class CommandHelp {
public:
    /// `say` speaks a text in place of what is being said.
    CommandHelp(forms::Lazy<Form2>& main_window, std::function<void(const std::string&)> say);

    /// Describes the selected entry; an entry without a description, or none, does nothing.
    void List1_DblClick();

private:
    forms::Lazy<Form2>& main_window_;
    std::function<void(const std::string&)> say_;
};

}  // namespace corvane
