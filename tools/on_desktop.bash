# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# What the tour and the desktop tests do on a virtual desktop. To be sourced.

tools=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
main_window="KT Corvane 3.0"
splash="About KT Corvane 3.0"

# wait_until SECONDS COMMAND...: runs the command until it succeeds; fails when it never does.
wait_until() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < end)) || return 1
        sleep 0.1
    done
}

# stays_so SECONDS COMMAND...: an absence can only be observed; fails as soon as the command does.
stays_so() {
    local end=$((SECONDS + $1))
    shift
    while "$@"; do
        ((SECONDS < end)) || return 0
        sleep 0.1
    done
    return 1
}

# stage_program EXECUTABLE FOLDER: a copy with its data, in which "notepad" is xterm: the program
# writes into its own folder, and the built one is to stay as it was built.
stage_program() {
    local from
    from=$(dirname "$1")
    mkdir -p "$2"
    cp "$1" "$2/corvane"
    find "$from" -maxdepth 1 \( -name '*.txt' -o -name '*.xml' -o -name '*.html' -o -name pictures \) \
        -exec cp -r -t "$2" {} +
    printf 'notepad\r\n/usr/bin/xterm.exe\r\n' > "$2/keywords.txt"
}

# start_program EXECUTABLE FOLDER: starts a staged copy; its process id is in $program.
start_program() {
    stage_program "$1" "$2"
    "$2/corvane" > "$2/output.txt" 2>&1 &
    program=$!
}

# An installed program offers its training once, at the first start; in this folder of settings the
# offer is due, or has been answered. Text that is to be read ends in a terminator.
# offer_training FOLDER, decline_training FOLDER
offer_training() { put_down_training "$1" '1%00'; }
decline_training() { put_down_training "$1" 0; }
put_down_training() {
    mkdir -p "$1/corvane"
    printf '[%s]\n"checktraining" 1 "%s"\n' 'SOFTWARE\Brindel\ktcv' "$2" > "$1/corvane/registry"
}

window_is_there() { xdotool search --onlyvisible --name "^$1\$" > /dev/null 2>&1; }
program_is_running() { kill -0 "$program" 2> /dev/null; }
program_has_ended() { ! program_is_running; }

# The microphone itself records from its sink, but is no client.
something_listens() { pactl list short source-outputs | cut -f 3 | grep -qv '^-$'; }

# The main window is there, its log can be read, and the microphone is open.
ready_for_commands() {
    window_is_there "$main_window" && something_listens && recognition_log > /dev/null
}
ready_or_ended() { ready_for_commands || program_has_ended; }

# becomes_ready: whether the program that was started listens before long.
becomes_ready() { wait_until 30 ready_or_ended && program_is_running; }

recognition_log() { "$tools/read-window" "$main_window" "Recognition log" 2> /dev/null | tr -d '\r'; }

# accepted [TEXT]: how many recognitions, of this phrase if one is given, were not thrown out.
accepted() {
    recognition_log | grep -cE "^[0-9]+, [0-9]+, Recognition,  \[Text=${1:-.*}\] \[Confidence=1\]\$" ||
        true
}
accepted_are() { [[ $(accepted "${2:-}") == "$1" ]]; }

terminals() { xdotool search --onlyvisible --class '^xterm$' 2> /dev/null | wc -l; }
terminals_are() { [[ $(terminals) == "$1" ]]; }
