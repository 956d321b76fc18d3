#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_first_start_offers_the_training.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

training="Corvane --Training"
export XDG_CONFIG_HOME="$scratch/settings" XDG_DATA_HOME="$scratch/data"

word_is_kept() { grep -qx 'corvane K AO R V EY N' "$XDG_DATA_HOME/corvane/words.txt" 2> /dev/null; }

offer_training "$XDG_CONFIG_HOME"
start_program "$1" "$scratch/program"
expect "the first start offers the training" wait_until 30 window_is_there "$training"
if window_is_there "$main_window"; then expect "the main window waits for it" false; fi

xdotool windowactivate --sync "$(xdotool search --onlyvisible --name "^$training\$")"
xdotool key alt+w
xdotool key alt+n
xdotool type corvane
xdotool key alt+a
expect "a word is added in it by the keyboard alone" wait_until 10 word_is_kept
xdotool key Escape
expect "behind it the program comes up" becomes_ready
expect "and has put down that it was offered" \
    grep -qx '"checktraining" 1 "0"' "$XDG_CONFIG_HOME/corvane/registry"
kill "$program"
wait "$program" || true

start_and_wait "$1"
if window_is_there "$training"; then expect "the second start offers nothing" false; fi
expect "the second start wrote nothing" \
    grep -qx '"checktraining" 1 "0"' "$XDG_CONFIG_HOME/corvane/registry"
