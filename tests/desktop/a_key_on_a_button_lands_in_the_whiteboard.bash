#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: a_key_on_a_button_lands_in_the_whiteboard.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

whiteboard() { "$tools/read-window" "$main_window" "Whiteboard" 2> /dev/null; }
whiteboard_is() { [[ $(whiteboard) == "$1" ]]; }

start_and_wait "$1"
xdotool search --onlyvisible --name "^$main_window\$" windowactivate --sync
xdotool key alt+c # the Clear button takes the focus
xdotool type --delay 100 "hi"
# The first letter comes as the capital that its key is; then the whiteboard has the focus.
expect "the keys land in the whiteboard" wait_until 10 whiteboard_is "Hi"
