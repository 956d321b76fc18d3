# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# What a person sees of windows, and does with the Add Programs window and the calendar. To be sourced.

add_programs="Add Programs"
calendar="Calendar"

window_gone() { ! window_is_there "$1"; }
window_of() { xdotool search --onlyvisible --name "^$1\$"; }

# By the number of a window.
is_in_front() { [[ $(xdotool getactivewindow 2> /dev/null) == "$1" ]]; }
has_state() { xprop -id "$1" _NET_WM_STATE 2> /dev/null | grep -q "_NET_WM_STATE_$2"; }
is_maximised() { has_state "$1" MAXIMIZED_HORZ && has_state "$1" MAXIMIZED_VERT; }
is_not_maximised() { ! is_maximised "$1"; }
is_minimised() { has_state "$1" HIDDEN; }

# click_in TITLE X Y [CLICKS]: in pixels from the corner of the window's client area.
click_in() {
    xdotool windowactivate --sync "$(window_of "$1")" mousemove --window "$(window_of "$1")" "$2" "$3" \
        click --repeat "${4:-1}" --delay 50 1
}

keyword_box() { "$tools/read-window" "$add_programs" "Keyword" 2> /dev/null; }
path_box() { "$tools/read-window" "$add_programs" "Path" 2> /dev/null; }
keyword_box_is() { [[ $(keyword_box) == "$1" ]]; }
path_box_is() { [[ $(path_box) == "$1" ]]; }

click_keyword_box() { click_in "$add_programs" 80 207; }
click_path_box() { click_in "$add_programs" 150 233; }
click_browse() { click_in "$add_programs" 285 233; }
click_add() { click_in "$add_programs" 349 225; }
click_delete() { click_in "$add_programs" 413 225; }
click_clear_all() { click_in "$add_programs" 478 225; }
# click_row NUMBER [CLICKS]: counts from 1.
click_row() { click_in "$add_programs" 60 $((11 + 14 * $1)) "${2:-1}"; }

store_is() { [[ $(tr -d '\r' < "$scratch/program/keywords.txt") == "$1" ]]; }

open_add_programs() {
    expect "the window is there" say_until window_is_there "$add_programs" -- add program
    expect "its boxes can be read" wait_until 10 keyword_box_is ""
}

# teach KEYWORD PATH: types both and presses Add.
teach() {
    click_path_box
    xdotool type "$2"
    click_keyword_box
    xdotool type "$1"
    expect "the keyword is typed" wait_until 10 keyword_box_is "$1"
    expect "the path is typed" wait_until 10 path_box_is "$2"
    click_add
    expect "Add has taken both" wait_until 10 path_box_is ""
}

# A program that leaves a mark for each time it was started; mixed case, as files are.
make_marking_program() {
    mkdir -p "$scratch/My Programs"
    mark="$scratch/marks"
    printf '#!/bin/sh\ndate +%%s%%N >> "%s"\n' "$mark" > "$scratch/My Programs/Marker"
    chmod +x "$scratch/My Programs/Marker"
}
marks() { cat "$mark" 2> /dev/null | wc -l; }
marks_are() { [[ $(marks) == "$1" ]]; }

date_shown() { "$tools/read-window" "$calendar" "Calendar" 2> /dev/null; }
month_is() { [[ $(date_shown) == *"$1"* ]]; }

# close_by_frame TITLE: the rightmost button of the title bar.
close_by_frame() {
    local X Y WIDTH HEIGHT WINDOW SCREEN
    xdotool windowactivate --sync "$(window_of "$1")"
    eval "$(xdotool getwindowgeometry --shell "$(window_of "$1")")"
    xdotool mousemove --window "$WINDOW" $((WIDTH - 8)) -9 click 1
    expect "the window $1 is closed" wait_until 10 window_gone "$1"
}
