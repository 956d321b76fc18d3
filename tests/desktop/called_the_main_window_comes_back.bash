#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: called_the_main_window_comes_back.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

start_and_wait "$1"
window=$(window_of "$main_window")
expect "the main window is in front" wait_until 10 is_in_front "$window"

"$tools/say-into-mic" --voice rms close this window
expect "the phrase is accepted" wait_until 10 accepted_are 1 "close this window"
expect "and does nothing to the main window" stays_so 1 window_is_there "$main_window"

"$tools/say-into-mic" --voice rms show me the calendar
expect "the calendar is there" wait_until 10 window_is_there "$calendar"
"$tools/say-into-mic" --voice rms close this window
expect "it is closed" wait_until 10 window_gone "$calendar"

expect "the main window is in front again" wait_until 10 is_in_front "$window"
"$tools/say-into-mic" --voice rms maximize window
expect "it fills the screen in spite of its fixed size" wait_until 10 is_maximised "$window"
"$tools/say-into-mic" --voice rms minimize window
expect "it is minimised" wait_until 10 is_minimised "$window"
"$tools/say-into-mic" --voice rms where are you
expect "it is back" wait_until 10 is_in_front "$window"
