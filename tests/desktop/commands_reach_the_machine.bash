#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: commands_reach_the_machine.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

# A system bus of this test's own, with a network and a machine that only remember.
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=$scratch/system-bus
dbus-daemon --session --nofork --nopidfile --address="$DBUS_SYSTEM_BUS_ADDRESS" 2> /dev/null &
servers=$!
end_all() {
    kill $servers 2> /dev/null || true
    clean_up
}
trap end_all EXIT
wait_until 10 test -S "$scratch/system-bus"
for mock in network machine; do
    "$here/${mock}_mock.py" serve > "$scratch/$mock.txt" 2>&1 &
    servers+=" $!"
done
expect "the network answers" wait_until 20 grep -q ready "$scratch/network.txt"
expect "the machine answers" wait_until 20 grep -q ready "$scratch/machine.txt"
network() { "$here/network_mock.py" "$@"; }
network profile 1 802-3-ethernet yes 900 answers
network profile 2 gsm no 100 answers

words() { "$tools/read-window" "$main_window" "Connection" 2> /dev/null; }
words_are() { [[ $(words) == "$1" ]]; }
machine_was_asked() { [[ $("$here/machine_mock.py" calls) == "$1" ]]; }
thrown_out() { recognition_log | grep -q "Recognition,  \[Text=$1\] \[Confidence=.*(THROWN OUT)"; }

trash=$XDG_DATA_HOME/Trash
mkdir -p "$trash/files/old project" "$trash/info"
touch "$trash/files/letter.txt" "$trash/files/old project/notes"
touch "$trash/info/letter.txt.trashinfo" "$trash/info/old project.trashinfo"
trash_is_empty() { [[ -z $(find "$trash/files" "$trash/info" -mindepth 1) ]]; }

# Other volumes are this machine's own; nothing that somebody keeps there may be lost to a test.
other_trash() {
    findmnt --raw --noheadings --output TARGET | while read -r top; do
        top=$(printf '%b' "$top")
        find "$top/.Trash-$UID/files" "$top/.Trash/$UID/files" -mindepth 1 2> /dev/null || true
    done
}

start_and_wait "$1"

expect "the modem is connected" say_until words_are "Connection via modem" -- dial the internet
expect "and no longer" say_until words_are "Disconnected" -- hang up the internet

if [[ -z $(other_trash) ]]; then
    expect "the trash is empty" say_until trash_is_empty -- empty the recycle bin
else
    echo "left out: another volume's trash is in use"
fi

# What only sounds like it, in one voice or another, until one of them is taken for it.
for attempt in "--voice rms shuttle down" "--voice awb shout it down" "shutter down" \
    "--voice rms shut the town down"; do
    "$tools/say-into-mic" $attempt  # several words, options among them
    ! wait_until 3 thrown_out shutdown || break
done
expect "the program still hears" say_until terminals_are 1 -- run notepad please
expect "a shutdown was heard, and doubted" thrown_out shutdown
expect "a doubtful shutdown is none" machine_was_asked ""

expect "the machine is asked to power off" \
    say_until machine_was_asked "PowerOff False" -- shutdown
