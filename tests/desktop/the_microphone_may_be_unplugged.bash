#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_microphone_may_be_unplugged.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

outages_are() { [[ $(recognition_log | grep -c "^No signal detected$") == "$1" ]]; }
unplug() {
    pactl unload-module \
        "$(pactl list short modules | grep source_name=corvane_capture | cut -f 1)"
}
plug_in() {
    pactl load-module module-remap-source source_name=corvane_capture \
        master=corvane_microphone.monitor > /dev/null
    pactl set-default-source corvane_capture
}

start_and_wait "$1"
for time in 1 2; do
    unplug
    expect "the missing signal is told" wait_until 15 outages_are "$time"
    flite -voice slt -t "run notepad please" -o "$scratch/said.wav"
    paplay --device=corvane_speaker "$scratch/said.wav"
    expect "what the speaker plays is not taken for speech" stays_so 3 terminals_are $((time - 1))
    plug_in
    expect "a command is heard again" say_until terminals_are "$time" -- run notepad please
    expect "and the outage was told once" outages_are "$time"
done
