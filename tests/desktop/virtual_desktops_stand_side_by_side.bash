#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# Two desktops at once: each has its own windows and its own sound.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

cat > "$scratch/command" << COMMAND
set -euo pipefail
source "$here/helpers.bash"
name=\$1 other=\$2
xterm -T "terminal of \$name" &
wait_until 10 window_is_there "terminal of \$name"
touch "\$CORVANE_TEST_MEETING/\$name"
wait_until 30 test -e "\$CORVANE_TEST_MEETING/\$other"
terminals_are 1
if [[ \$name == speaking ]]; then
    wait_until 10 test -e "\$CORVANE_TEST_MEETING/recording"
    "\$tools/say-into-mic" run notepad please
    touch "\$CORVANE_TEST_MEETING/said"
else
    record() {
        touch "\$CORVANE_TEST_MEETING/recording"
        wait_until 30 test -e "\$CORVANE_TEST_MEETING/said"
    }
    record_while "\$scratch/heard.raw" record
    test "\$(loudness "\$scratch/heard.raw")" -lt 100
fi
COMMAND

export CORVANE_TEST_MEETING=$scratch
"$tools/virtual-desktop" bash "$scratch/command" speaking listening &
speaking=$!
"$tools/virtual-desktop" bash "$scratch/command" listening speaking &
listening=$!
expect "one sees only its own window" wait "$speaking"
expect "the other too, and it does not hear the first" wait "$listening"
