#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: called_the_main_window_comes_back.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

start_and_wait "$1"
window=$(window_of "$main_window")
expect "the main window is in front" wait_until 10 is_in_front "$window"

expect "the phrase is accepted" say_until accepted_are 1 "close this window" -- close this window
expect "and does nothing to the main window" stays_so 1 window_is_there "$main_window"

expect "the calendar is there" say_until window_is_there "$calendar" -- show me the calendar
expect "it is closed" say_until window_gone "$calendar" -- close this window

expect "the main window is in front again" wait_until 10 is_in_front "$window"
expect "it fills the screen in spite of its fixed size" \
    say_until is_maximised "$window" -- maximize window
expect "it is minimised" say_until is_minimised "$window" -- minimize window
expect "it is back" say_until is_in_front "$window" -- where are you
