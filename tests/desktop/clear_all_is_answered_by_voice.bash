#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: clear_all_is_answered_by_voice.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

start_and_wait "$1"
open_add_programs
stored=$(printf 'notepad\n/usr/bin/xterm.exe')

click_clear_all
expect "it asks first" wait_until 10 window_is_there "WARNING!"
expect "no answers it" say_until window_gone "WARNING!" -- no
expect "nothing is cleared" stays_so 1 store_is "$stored"

click_clear_all
expect "it asks again" wait_until 10 window_is_there "WARNING!"
expect "yes answers it" say_until window_gone "WARNING!" -- yes
expect "all is cleared" wait_until 10 store_is ""
"$tools/say-into-mic" --voice rms run notepad please
expect "the keyword is not known any more" stays_so 3 terminals_are 0
