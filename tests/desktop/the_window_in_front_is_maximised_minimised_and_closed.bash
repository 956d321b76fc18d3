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

"$tools/say-into-mic" --voice rms maximize window
expect "it fills the screen" wait_until 10 is_maximised "$terminal"
"$tools/say-into-mic" --voice rms normalize window
expect "it has its size again" wait_until 10 is_not_maximised "$terminal"
"$tools/say-into-mic" --voice rms minimize window
expect "it is minimised" wait_until 10 is_minimised "$terminal"
xdotool windowactivate --sync "$terminal"
"$tools/say-into-mic" --voice rms close this window
expect "it is closed" wait_until 10 window_gone "A terminal"
expect "the program runs on" program_is_running
