#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: dictation_types_into_another_program.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/dictation.bash"

# What a terminal is sent, with the keys that take something back carried out.
typed() {
    /usr/bin/python3 - "$scratch/typed" << 'PYTHON'
import re, sys
text, before = open(sys.argv[1]).read().replace("\b", "\x7f"), None
while text != before:
    before, text = text, re.sub("[^\x7f]\x7f", "", text)
print(text)
PYTHON
}
typed_has() { [[ $(typed | tr "[:upper:]" "[:lower:]") == *"$1"* ]]; }
nothing_is_typed() { [[ -z $(typed) ]]; }

# A terminal that shows keys as they come.
: > "$scratch/typed"
xterm -title "A letter" -e sh -c "stty -icanon -echo; exec cat > '$scratch/typed'" &
letter=$!
start_and_wait "$1"
expect "dictation begins" say_until accepted_are 1 "start dictation" -- start dictation
xdotool windowactivate --sync "$(xdotool search --onlyvisible --name '^A letter$')"

expect "a sentence is typed" say_until typed_has monday -- "$sentence"
expect "no pad is shown" pad_is_gone
expect "it is taken back" say_until nothing_is_typed -- clear everything

# The phrase leaves no trace of its own: a command is heard behind it.
commands_are_back() {
    local voice
    for voice in rms slt awb; do
        "$tools/say-into-mic" --voice "$voice" quit dictation
        sleep 1
        "$tools/say-into-mic" --voice rms run notepad please
        ! wait_until 10 terminals_are 2 || return 0
    done
    return 1
}
expect "a command is heard again" commands_are_back
kill "$letter"
