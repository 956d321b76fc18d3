#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: what_the_machine_lacks_it_does_without.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

tray_words() { "$tools/read-window" "$main_window" "CD tray" 2> /dev/null; }
tray_words_are() { [[ $(tray_words) == "$1" ]]; }

# On this desktop nobody answers on the system bus, and nothing has ever been thrown away.
start_and_wait "$1"
expect "shutdown is accepted" say_until accepted_are 1 -- shutdown
expect "so is dialling" say_until accepted_are 2 -- dial the internet
expect "so is hanging up" say_until accepted_are 3 -- hang up the internet
expect "it goes on" say_until terminals_are 1 -- run notepad please
expect "all of it was accepted" wait_until 10 accepted_are 4

# A tray that is there would move.
if compgen -G '/sys/block/sr*' > /dev/null; then
    echo "left out: there is an optical drive"
else
    expect "without a drive the words say that it is open" \
        say_until tray_words_are "Opened" -- open the tray
    expect "and closed again" say_until tray_words_are "Closed" -- close the tray
fi
