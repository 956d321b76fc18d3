# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# What those find in windows who do not see them or do not use their hands. To be sourced.

misses_nothing() { "$tools/describe-window" --faults "$1"; }

# has_part TITLE PATTERN: one of the lines that describe the window, as a whole.
has_part() { "$tools/describe-window" "$1" | sed 's/^ *//' | grep -qxE "$2"; }

# walk TITLE PATTERN...: the window has no fault, and these parts. For each window that is shown.
walk() {
    local title=$1 part
    shift
    expect "the window $title can be read" wait_until 10 has_part "$title" "$1"
    expect "who does not see $title misses nothing" misses_nothing "$title"
    for part in "$@"; do
        expect "$title has a part $part" has_part "$title" "$part"
    done
}

focus_is() { [[ $("$tools/describe-window" --focus "$1" 2> /dev/null) == "$2" ]]; }

# keys_go_through KEY TITLE CONTROL...: the focus is on the first; each stroke takes it to the next.
keys_go_through() {
    local key=$1 title=$2 stop
    expect "in $title, $3 has the focus" wait_until 10 focus_is "$title" "$3"
    for stop in "${@:4}"; do
        xdotool key "$key"
        expect "$key leads to $stop" wait_until 10 focus_is "$title" "$stop"
    done
}

to_front() { xdotool windowactivate --sync "$(window_of "$1")"; }

# act TITLE CONTROL ACTION: without mouse and keys.
act() { "$tools/act-on-window" "$@"; }
