#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_calendar_hears_months_beside_the_commands.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

start_and_wait "$1"
"$tools/say-into-mic" --voice rms show me the calendar
expect "the calendar is there" wait_until 10 window_is_there "$calendar"
expect "it opens on its stored date" wait_until 10 month_is "October 2001"
"$tools/say-into-mic" --voice rms march
expect "a month is shown" wait_until 10 month_is "March 2001"
"$tools/say-into-mic" --voice rms run notepad please
expect "a command is carried out beside it" wait_until 10 terminals_are 1
"$tools/say-into-mic" --voice rms december
expect "and the next month is heard" wait_until 10 month_is "December 2001"

"$tools/say-into-mic" stop listening
expect "the commands are off" wait_until 10 accepted_are 1 "stop listening"
"$tools/say-into-mic" --voice rms september
expect "a month is shown in quiet mode too" wait_until 10 month_is "September 2001"
"$tools/say-into-mic" --voice rms run notepad please
expect "a command is not carried out then" stays_so 3 terminals_are 1

"$tools/say-into-mic" --voice rms close me
expect "the calendar is away" wait_until 10 window_gone "$calendar"
"$tools/say-into-mic" --voice rms february
"$tools/say-into-mic" --voice rms enable
expect "the commands are on again" wait_until 10 accepted_are 1 "enable"
"$tools/say-into-mic" --voice rms show me the calendar
expect "the calendar is back" wait_until 10 window_is_there "$calendar"
expect "hidden it has heard on" wait_until 10 month_is "February 2001"

close_by_frame "$calendar"
expect "the program runs on" program_is_running
"$tools/say-into-mic" --voice rms show me the calendar
expect "the calendar is built anew" wait_until 10 window_is_there "$calendar"
expect "on its stored date" wait_until 10 month_is "October 2001"
