#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_clock_may_jump.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

# The program's own wall clock, by days ahead of the machine's; time goes by as ever.
jump_to() { echo "$1" > "$scratch/clock"; }
clock=$(compgen -G '/usr/lib/*/faketime/libfaketimeMT.so.1')
jump_to "+0"

# A machine with a network that can be changed: whether the program still looks shows there.
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=$scratch/system-bus
dbus-daemon --session --nofork --nopidfile --address="$DBUS_SYSTEM_BUS_ADDRESS" 2> /dev/null &
servers=$!
end_all() {
    kill $servers 2> /dev/null || true
    clean_up
}
trap end_all EXIT
wait_until 10 test -S "$scratch/system-bus"
"$here/network_mock.py" serve > "$scratch/mock.txt" 2>&1 &
servers+=" $!"
expect "the network answers" wait_until 20 grep -q ready "$scratch/mock.txt"

words() { "$tools/read-window" "$main_window" "Connection" 2> /dev/null; }
words_are() { [[ $(words) == "$1" ]]; }
voice_plays() {
    pactl list sink-inputs | awk '/Corked:/ { corked = $2 }
                                  /media.name = "voice"/ && corked == "no" { found = 1 }
                                  END { exit !found }'
}
voice_is_silent() { ! voice_plays; }

stage_program "$1" "$scratch/program"
env LD_PRELOAD="$clock" FAKETIME_TIMESTAMP_FILE="$scratch/clock" FAKETIME_NO_CACHE=1 \
    FAKETIME_DONT_FAKE_MONOTONIC=1 "$scratch/program/corvane" > "$scratch/program/output.txt" 2>&1 &
program=$!
expect "the program listens" becomes_ready
expect "its clock is its own" grep -q faketime "/proc/$program/maps"

started=0
for jump in "+1d" "-2d" "+400d" "+0"; do
    jump_to "$jump"
    "$here/network_mock.py" set 70 gsm ""
    expect "at $jump the connection is followed" wait_until 10 words_are "Connection via modem"
    "$here/network_mock.py" set 20 "" ""
    expect "to its end" wait_until 10 words_are "Disconnected"
    started=$((started + 1))
    expect "commands are heard" say_until terminals_are "$started" -- run notepad please
    expect "the voice answers" say_until voice_plays -- what is the date
    expect "and comes to its end" wait_until 10 voice_is_silent
done
