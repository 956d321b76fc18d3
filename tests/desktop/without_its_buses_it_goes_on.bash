#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: without_its_buses_it_goes_on.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

# Buses for the program alone. The one by which windows are read stays; that it is there the program
# is told on its own.
accessibility=$(dbus-send --session --print-reply=literal --dest=org.a11y.Bus /org/a11y/bus \
    org.a11y.Bus.GetAddress | tr -d ' ')
buses=()
end_all() {
    kill -KILL "${buses[@]}" 2> /dev/null || true
    clean_up
}
trap end_all EXIT
for name in system session; do
    dbus-daemon --session --nofork --nopidfile --address="unix:path=$scratch/$name-bus" \
        2> /dev/null &
    buses+=($!)
    wait_until 10 test -S "$scratch/$name-bus"
done
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=$scratch/system-bus
own_session=(env "DBUS_SESSION_BUS_ADDRESS=unix:path=$scratch/session-bus")

"${own_session[@]}" /usr/bin/python3 -m dbusmock --session org.a11y.Bus /org/a11y/bus org.a11y.Bus \
    > /dev/null 2>&1 &
mock_method() {
    "${own_session[@]}" dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus \
        org.freedesktop.DBus.Mock.AddMethod string:org.a11y.Bus string:GetAddress string: string:s \
        string:"ret = '$accessibility'" > /dev/null 2>&1
}
expect "the program can be told how to be read" wait_until 20 mock_method
"${own_session[@]}" "$here/network_mock.py" serve > "$scratch/mock.txt" 2>&1 &
expect "the network answers" wait_until 20 grep -q ready "$scratch/mock.txt"
"${own_session[@]}" "$here/network_mock.py" set 70 gsm ""

words() { "$tools/read-window" "$main_window" "Connection" 2> /dev/null; }
words_are() { [[ $(words) == "$1" ]]; }
# What the kernel's own routes tell, among which is no modem.
words_are_of_routes() { ! words_are "Connection via modem"; }

stage_program "$1" "$scratch/program"
"${own_session[@]}" "$scratch/program/corvane" > "$scratch/program/output.txt" 2>&1 &
program=$!
expect "the program listens" becomes_ready
expect "it follows the network" wait_until 15 words_are "Connection via modem"

kill -KILL "${buses[@]}"
expect "it follows the routes instead" wait_until 15 words_are_of_routes
expect "it hears" say_until terminals_are 1 -- run notepad please
for command in "shutdown" "dial the internet" "hang up the internet" "hide corvane" \
    "show corvane"; do
    "$tools/say-into-mic" --voice rms $command  # several words
done
expect "nothing of that holds it up" say_until terminals_are 2 -- run notepad please
expect "its window is there" wait_until 10 window_is_there "$main_window"
