#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: a_command_describes_itself.bash EXECUTABLE CORVANE-HEAR
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
hear=$2

# The recogniser tells which of these it has heard.
cat > "$scratch/sentences.xml" << 'GRAMMAR'
<GRAMMAR LANGID="409">
<RULE NAME="Add Program" TOPLEVEL="ACTIVE"><P>add program opens the add programs dialog where you can add remove or look up program short cuts</P></RULE>
<RULE NAME="Are you there" TOPLEVEL="ACTIVE"><P>are you there notifies you whether or not speech recognition is listening and brings corvane to the foreground</P></RULE>
<RULE NAME="Reboot" TOPLEVEL="ACTIVE"><P>reboot reboots the computer</P></RULE>
<RULE NAME="Recycle Bin" TOPLEVEL="ACTIVE"><P>recycle bin empties the recycle bin</P></RULE>
<RULE NAME="Shutdown" TOPLEVEL="ACTIVE"><P>shut down shuts down windows and powers off the computer</P></RULE>
<RULE NAME="Time" TOPLEVEL="ACTIVE"><P>time tells the current time</P></RULE>
</GRAMMAR>
GRAMMAR

double_click() { xdotool mousemove --window "$window" "$1" "$2" click --repeat 2 --delay 60 1; }

# description_at X Y: the entry whose description is said when the list is double-clicked there.
description_at() {
    local spoken
    spoken=$(record_speaker double_click "$1" "$2")
    "$hear" --grammar "$scratch/sentences.xml" "$spoken" |
        awk -F '\t' '$2 == "recognition" { print $3 }'
}

start_and_wait "$1"
window=$(xdotool search --onlyvisible --name "^$main_window\$")
xdotool windowactivate --sync "$window"

said=$(description_at 40 83)
expect "the first entry describes \"$said\"" equal "$said" "Add Program"
said=$(description_at 40 420)
expect "the last entry describes \"$said\"" equal "$said" "Time"
said=$(description_at 40 440)
expect "below the entries the selected one describes \"$said\"" equal "$said" "Time"
expect "nothing was heard by the program itself" accepted_are 0
