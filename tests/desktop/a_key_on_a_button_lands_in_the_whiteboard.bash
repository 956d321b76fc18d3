#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: a_key_on_a_button_lands_in_the_whiteboard.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

whiteboard() { "$tools/read-window" "$main_window" "Whiteboard" 2> /dev/null; }
whiteboard_is() { [[ $(whiteboard) == "$1" ]]; }

start_and_wait "$1"
window=$(xdotool search --onlyvisible --name "^$main_window\$")
xdotool windowactivate --sync "$window"
xdotool mousemove --window "$window" 250 200 click 1
xdotool type "x"
expect "the whiteboard takes what is typed" wait_until 10 whiteboard_is "x"
xdotool key alt+c
expect "Alt+C clears it, and the button has the focus" wait_until 10 whiteboard_is ""

xdotool type --delay 100 "hi"
# The first letter comes as the capital that its key is; then the whiteboard has the focus.
expect "keys on the button land in the whiteboard" wait_until 10 whiteboard_is "Hi"
