#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: missing_keywords_are_reported.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

stage_program "$1" "$scratch/program"
rm "$scratch/program/keywords.txt"
"$scratch/program/corvane" > "$scratch/program/output.txt" 2>&1 &
program=$!
expect "a report stands on the screen" wait_until 20 window_is_there "KT Corvane"
expect "it names the file" grep -q "File not found: $scratch/program/keywords.txt" \
    "$scratch/program/output.txt"
if window_is_there "$main_window"; then expect "there is no main window" false; fi
xdotool search --onlyvisible --name '^KT Corvane$' windowactivate --sync
xdotool key Return
expect "behind the report the process ends" wait_until 10 program_has_ended
expect "the file was not made" test ! -e "$scratch/program/keywords.txt"
