#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_sound_server_may_be_restarted.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/dictation.bash"
source "$here/sound_server.bash"

answers() { recognition_log > /dev/null; }
outages() { recognition_log | grep -c "^No signal detected$" || true; }
outages_are_more_than() { (($(outages) > $1)); }
voice_plays() {
    pactl list sink-inputs | awk '/Corked:/ { corked = $2 } /media.name = "voice"/ && corked == "no" { found = 1 }
                                  END { exit !found }'
}

# The program goes on meanwhile, and listens by itself when the server is back.
restart_sound_server() {
    kill_sound_server
    "$@"
    expect "the program still answers" wait_until 10 answers
    expect "and runs" program_is_running
    start_sound_server
    expect "it listens again" wait_until 20 something_listens
}
missing_signal_is_told() {
    expect "the missing signal is told" wait_until 15 outages_are_more_than "$before"
}

start_sound_server
start_and_wait "$1"
expect "a command is heard" say_until terminals_are 1 -- run notepad please

before=$(outages)
restart_sound_server missing_signal_is_told
expect "a command is heard after an outage" say_until terminals_are 2 -- run notepad please

# While it speaks.
window=$(xdotool search --onlyvisible --name "^$main_window\$")
xdotool windowactivate --sync "$window" mousemove --window "$window" 250 180 click 1
xdotool type --delay 10 "One two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen."
expect "it reads aloud" say_until voice_plays -- read whiteboard
restart_sound_server true
expect "a command is heard after a broken reading" say_until terminals_are 3 -- run notepad please
expect "and its voice too" say_until voice_plays -- what time is it

# While somebody dictates.
expect "the pad opens" say_until window_is_there "$pad" -- dictation pad
restart_sound_server true
expect "dictation goes on" say_until pad_text_has monday -- "$sentence"
expect "and is ended by voice" say_until pad_is_gone -- quit dictation
expect "commands are heard again" say_until terminals_are 4 -- run notepad please
