#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: an_application_is_chosen_by_its_name.bash EXECUTABLE
# Whoever knows nothing of paths chooses an installed application by the name that its menu shows. Its
# row goes by a double click, which leaves the word in the grammar.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

make_marking_program
export XDG_DATA_HOME=$scratch/Data
mkdir -p "$XDG_DATA_HOME/applications"
printf '[Desktop Entry]\nType=Application\nName=Picture Viewer\nExec="%s" %%F\n' \
    "$scratch/My Programs/Marker" > "$XDG_DATA_HOME/applications/org.example.Viewer.desktop"
start_and_wait "$1"
open_add_programs

click_browse
expect "the file dialog is there" wait_until 10 window_is_there "Open exe file path"
xdotool type "Picture Viewer"
xdotool key Return
path=$(tr '[:upper:]' '[:lower:]' <<< "$XDG_DATA_HOME/applications/org.example.Viewer.desktop.exe")
expect "the application's entry is the path" wait_until 10 path_box_is "$path"
click_keyword_box
xdotool type "pictures"
expect "the keyword is typed" wait_until 10 keyword_box_is "pictures"
click_add
expect "it is stored" wait_until 10 store_is "$(printf 'notepad\n/usr/bin/xterm.exe\npictures\n%s' "$path")"
expect "the application has started" say_until marks_are 1 -- run pictures please

click_row 2 2
expect "a double click takes the row out" wait_until 10 store_is "$(printf 'notepad\n/usr/bin/xterm.exe')"
expect "the word is still heard" \
    say_until accepted_are 2 "run pictures please" -- run pictures please
expect "and starts nothing" stays_so 2 marks_are 1
