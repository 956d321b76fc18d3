#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_calendar_hears_months_beside_the_commands.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

start_and_wait "$1"
expect "the calendar is there" say_until window_is_there "$calendar" -- show me the calendar
expect "it opens on its stored date" wait_until 10 month_is "October 2001"
expect "a month is shown" say_until month_is "March 2001" -- march
expect "a command is carried out beside it" say_until terminals_are 1 -- run notepad please
expect "and the next month is heard" say_until month_is "December 2001" -- december

expect "the commands are off" say_until accepted_are 1 "stop listening" -- stop listening
expect "a month is shown in quiet mode too" say_until month_is "September 2001" -- september
"$tools/say-into-mic" --voice rms run notepad please
expect "a command is not carried out then" stays_so 3 terminals_are 1

expect "the calendar is away" say_until window_gone "$calendar" -- close me
# shown_in_february TIME VOICE: whether that voice's "february" was heard while the calendar was hidden
# and the commands were off, which they are the first time.
shown_in_february() {
    (($1 == 1)) || expect "the commands are off again" \
        say_until accepted_are "$1" "stop listening" -- stop listening
    "$tools/say-into-mic" --voice "$2" february
    expect "the commands are on" say_until accepted_are "$1" "enable" -- enable
    expect "the calendar is back" say_until window_is_there "$calendar" -- show me the calendar
    ! wait_until 3 month_is "February 2001" || return 0
    expect "the calendar is away again" say_until window_gone "$calendar" -- close me
    return 1
}
shown_in_february_by_some_voice() {
    shown_in_february 1 rms || shown_in_february 2 slt || shown_in_february 3 awb
}
expect "hidden it has heard on" shown_in_february_by_some_voice

close_by_frame "$calendar"
expect "the program runs on" program_is_running
expect "the calendar is built anew" say_until window_is_there "$calendar" -- show me the calendar
expect "on its stored date" wait_until 10 month_is "October 2001"
