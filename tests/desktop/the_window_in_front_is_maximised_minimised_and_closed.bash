#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_window_in_front_is_maximised_minimised_and_closed.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

start_and_wait "$1"
xterm -T "A terminal" &
expect "the other program is there" wait_until 10 window_is_there "A terminal"
terminal=$(window_of "A terminal")
expect "it is in front" wait_until 10 is_in_front "$terminal"

expect "it fills the screen" say_until is_maximised "$terminal" -- maximize window
expect "it has its size again" say_until is_not_maximised "$terminal" -- normalize window
expect "it is minimised" say_until is_minimised "$terminal" -- minimize window
xdotool windowactivate --sync "$terminal"
expect "it is closed" say_until window_gone "A terminal" -- close this window
expect "the program runs on" program_is_running
