#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_word_being_read_is_marked.bash EXECUTABLE TEXT-WINDOW
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

# The whiteboard in the window, in pixels.
board=300x140+110+90
words="The quick brown fox doesn't jump over the lazy dog at 12 o'clock A second line follows"

watched() { grep -sqx watching "$scratch/marks.txt"; }
reading_is_over() { tail -n 1 "$scratch/marks.txt" | grep -qP '\t0\t0\t$'; }

# Whether the marks are words of the text in their order. A word that is over before the watcher
# has looked is missed, but never more than a few.
marks_follow_the_words() {
    /usr/bin/python3 - "$scratch/marks.txt" "$words" << 'PYTHON'
import sys
marks = [line.rstrip("\n").split("\t")[3] for line in open(sys.argv[1]) if "\t" in line]
words = sys.argv[2].split()
ahead = iter(words)
marks = [mark for mark in marks if mark]
sys.exit(not all(mark in ahead for mark in marks) or len(marks) < len(words) - 4)
PYTHON
}

marked_pixels() {
    import -window "$window" png:- | convert png:- -crop "$board" +repage txt:- |
        grep -c '#308CC6' || true
}
a_mark_is_seen() { (($(marked_pixels) > 50)); }

start_and_wait "$1"
window=$(xdotool search --onlyvisible --name "^$main_window\$")
xdotool windowactivate --sync "$window"
xdotool mousemove --window "$window" 250 180 click 1
xdotool type --delay 20 "The quick brown <emph>fox</emph> doesn't jump over the lazy dog, at 12 o'clock."
xdotool key Return
xdotool type --delay 20 "A second line follows."

# The other program keeps the focus while the whiteboard is read.
"$2" "A letter" "Dear Ann" &
letter=$!
expect "the other program is there" wait_until 10 window_is_there "A letter"
other=$(xdotool search --onlyvisible --name '^A letter$')
xdotool windowmove "$other" 700 600 windowactivate --sync "$other"
expect "nothing is marked before" equal "$(marked_pixels)" 0

"$tools/watch-marks" "$main_window" "Whiteboard" > "$scratch/marks.txt" &
watcher=$!
expect "the whiteboard is watched" wait_until 10 watched
expect "a mark is seen while another program has the focus" \
    say_until a_mark_is_seen -- read the whiteboard
expect "the other program still has it" equal "$(xdotool getactivewindow)" "$other"
expect "the reading comes to its end" wait_until 30 reading_is_over
cat "$scratch/marks.txt"
expect "the marks have followed the words" marks_follow_the_words
expect "no mark is left" equal "$(marked_pixels)" 0
kill "$watcher" "$letter"
