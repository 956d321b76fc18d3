#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: yes_no_and_okay_are_typed_into_a_terminal.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

typed() { cat "$scratch/typed"; }
typed_is() { [[ $(typed) == "$1" ]]; }

start_and_wait "$1"
xterm -T "A question" -e sh -c 'stty raw -echo; exec cat > "$0"' "$scratch/typed" &
terminal=$!
expect "the terminal is there" wait_until 10 window_is_there "A question"
expect "it takes keys" wait_until 10 test -e "$scratch/typed"
xdotool windowactivate --sync "$(xdotool search --onlyvisible --name '^A question$')"

expect "\"yes\" types y" say_until typed_is "y" -- yes
expect "\"no\" types n" say_until typed_is "yn" -- no
expect "\"okay\" types Enter" say_until typed_is $'yn\r' -- okay
expect "three commands were accepted" accepted_are 3
kill "$terminal"
