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

"$tools/say-into-mic" yes
expect "\"yes\" types y" wait_until 10 typed_is "y"
"$tools/say-into-mic" no
expect "\"no\" types n" wait_until 10 typed_is "yn"
"$tools/say-into-mic" okay
expect "\"okay\" types Enter" wait_until 10 typed_is $'yn\r'
expect "three commands were accepted" accepted_are 3
kill "$terminal"
