#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: exit_menu_ends_the_process.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

start_and_wait "$1"
window=$(xdotool search --onlyvisible --name "^$main_window\$")
xdotool windowactivate --sync "$window" key alt+f
menu_is_open() { [[ $(xdotool search --onlyvisible --pid "$program" 2> /dev/null | wc -l) -gt 1 ]]; }
expect "Alt+F opens the File menu" wait_until 10 menu_is_open
xdotool key x
expect "the process has ended" wait_until 10 program_has_ended
status=0
wait "$program" || status=$?
program=
expect "it ended without an error" equal "$status" 0
