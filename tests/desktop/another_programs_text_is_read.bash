#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: another_programs_text_is_read.bash EXECUTABLE TEXT-WINDOW
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

whiteboard() { "$tools/read-window" "$main_window" "Whiteboard" 2> /dev/null; }
whiteboard_is() { [[ $(whiteboard) == "$1" ]]; }

start_and_wait "$1"
"$2" "A letter" $'Dear Ann,\nall is well.' &
letter=$!
expect "the other program is there" wait_until 10 window_is_there "A letter"
xdotool windowactivate --sync "$(xdotool search --onlyvisible --name '^A letter$')"

expect "the phrase is accepted" \
    say_until accepted_are 1 "read all the text" -- read all the text
expect "all of the text is on the whiteboard" wait_until 10 whiteboard_is $'Dear Ann,\nall is well.'

# All is still highlighted; then only the first word; then nothing.
xdotool key ctrl+Home ctrl+shift+Right
expect "only the highlighted word is on the whiteboard" \
    say_until whiteboard_is "Dear " -- read the selected text
xdotool key ctrl+End
expect "with nothing highlighted the whiteboard is emptied" \
    say_until whiteboard_is "" -- read the selected text
expect "it is read again" say_until whiteboard_is $'Dear Ann,\nall is well.' -- read all the text
expect "four commands were accepted" accepted_are 4
kill "$letter"
