#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_connection_is_followed.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

# A system bus of this test's own, with a network manager that does what it is told.
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=$scratch/system-bus
dbus-daemon --session --nofork --nopidfile --address="$DBUS_SYSTEM_BUS_ADDRESS" 2> /dev/null &
bus=$!
wait_until 10 test -S "$scratch/system-bus"
"$here/network_mock.py" serve > "$scratch/mock.txt" 2>&1 &
mock=$!
end_all() {
    kill "$mock" "$bus" 2> /dev/null || true
    clean_up
}
trap end_all EXIT
expect "the network answers" wait_until 20 grep -q ready "$scratch/mock.txt"
network() { "$here/network_mock.py" "$@"; }

words() { "$tools/read-window" "$main_window" "Connection" 2> /dev/null; }
words_are() { [[ $(words) == "$1" ]]; }
# says WORDS: whether the panel comes to say so.
says() { expect "it says \"$1\"" wait_until 15 words_are "$1"; }

start_and_wait "$1"
says "Disconnected"
network set 70 802-11-wireless ""
says "Connection via LAN"
network set 70 gsm ""
says "Connection via modem"
network set 70 802-3-ethernet ""
network proxy http://proxy.example.org:3128
says "Connection via LAN using a Proxy"
network proxy direct://
network set 70 gsm gsm
says "Connection via modem via Modem -line busy"
network set 40 "" gsm
says "Disconnected via Modem -line busy"
network set 70 "" ""
says "Connection"
network set 20 "" ""
says "Disconnected"
