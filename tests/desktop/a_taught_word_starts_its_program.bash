#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: a_taught_word_starts_its_program.bash EXECUTABLE
# By voice and mouse: browse to a program, teach a made-up word, say it; delete it, say it again.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

make_marking_program
start_and_wait "$1"
open_add_programs

click_browse
expect "the file dialog is there" wait_until 10 window_is_there "Open exe file path"
xdotool type "$scratch/My Programs/Marker"
xdotool key Return
path=$(tr '[:upper:]' '[:lower:]' <<< "$scratch/My Programs/Marker.exe")
expect "the path is named as a program, in lower case" wait_until 10 path_box_is "$path"
click_keyword_box
xdotool type "zimbola"
expect "the keyword is typed" wait_until 10 keyword_box_is "zimbola"
xdotool key Return
stored=$(printf 'notepad\n/usr/bin/xterm.exe\nzimbola\n%s' "$path")
expect "Enter adds it" wait_until 10 store_is "$stored"
expect "the boxes are empty" wait_until 10 path_box_is ""

expect "the program has started" say_until marks_are 1 -- zimbola
echo "It started $((($(< "$mark") - said) / 1000000)) ms after the word's end."

click_row 2
expect "the row is chosen" wait_until 10 keyword_box_is "zimbola"
click_delete
expect "the word is gone" wait_until 10 store_is "$(printf 'notepad\n/usr/bin/xterm.exe')"
"$tools/say-into-mic" --voice rms zimbola
expect "the program does not start" stays_so 3 marks_are 1
expect "the other keyword still works" say_until terminals_are 1 -- run notepad please
