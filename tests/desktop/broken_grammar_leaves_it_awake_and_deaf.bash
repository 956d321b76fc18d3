#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: broken_grammar_leaves_it_awake_and_deaf.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

stage_program "$1" "$scratch/program"
sed -i '$d' "$scratch/program/keywords.xml" # the root element stays open
"$scratch/program/corvane" > "$scratch/program/output.txt" 2>&1 &
program=$!
expect "the program is awake" becomes_ready
"$tools/say-into-mic" --voice rms run notepad please
expect "it hears no command" stays_so 4 terminals_are 0
expect "it is still awake" program_is_running

# The way out is the menu.
xdotool search --onlyvisible --name "^$main_window\$" windowactivate --sync key alt+f
sleep 0.5
xdotool key x
expect "the menu ends it" wait_until 10 program_has_ended
