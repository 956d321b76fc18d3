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

# tab_goes_through TITLE CONTROL...: the focus is on the first; each Tab takes it to the next, and
# Shift+Tab back again.
tab_goes_through() {
    local title=$1 at
    shift
    local -a stops=("$@")
    expect "in $title, ${stops[0]} has the focus" wait_until 10 focus_is "$title" "${stops[0]}"
    for ((at = 1; at < ${#stops[@]}; at++)); do
        xdotool key Tab
        expect "Tab leads to ${stops[at]}" wait_until 10 focus_is "$title" "${stops[at]}"
    done
    for ((at = ${#stops[@]} - 2; at >= 0; at--)); do
        xdotool key shift+Tab
        expect "Shift+Tab leads back to ${stops[at]}" wait_until 10 focus_is "$title" "${stops[at]}"
    done
}

to_front() { xdotool windowactivate --sync "$(window_of "$1")"; }

# act TITLE CONTROL ACTION: without mouse and keys.
act() { "$tools/act-on-window" "$@"; }
