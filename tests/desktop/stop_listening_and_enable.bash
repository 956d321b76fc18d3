#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: stop_listening_and_enable.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

start_and_wait "$1"
expect "the program was told to stop listening" \
    say_until accepted_are 1 "stop listening" -- stop listening

"$tools/say-into-mic" run notepad please
expect "a command is not accepted now" stays_so 4 accepted_are 1
expect "and starts nothing" terminals_are 0

expect "the program was told to listen again" say_until accepted_are 1 "enable" -- enable

expect "a command works again" say_until terminals_are 1 -- run notepad please
