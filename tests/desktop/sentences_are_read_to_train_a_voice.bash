#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: sentences_are_read_to_train_a_voice.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/dictation.bash"

training="Corvane --Training"
own_sentence="Green apples fell on the wet grass."
export XDG_DATA_HOME="$scratch/data"

shown() { "$tools/read-window" "$training" "$1" 2> /dev/null; }
shows() { [[ $(shown "$1") == *"$2"* ]]; }
question_is_there() { window_is_there Training; }
training_is_there() { window_is_there "$training" && shown "Sentence to read" > /dev/null; }
training_is_gone() { ! window_is_there "$training"; }

start_and_wait "$1"
expect "the pad opens" say_until window_is_there "$pad" -- dictation pad
xdotool windowactivate --sync "$(xdotool search --onlyvisible --name "^$pad\$")"
xdotool key alt+t
expect "a sentence is asked for" wait_until 10 question_is_there
xdotool type "$own_sentence"
xdotool key Return
expect "the window of the training opens" wait_until 10 training_is_there
expect "with the sentence" equal "$(shown "Sentence to read")" "$own_sentence"
expect "before its own" equal "$(shown Progress)" "Sentence 1 of 21"

expect "it goes on by itself when that is read" \
    say_until shows Progress "Sentence 2 of 21" -- "$own_sentence"
second=$(shown "Sentence to read")
"$tools/say-into-mic" --voice slt run notepad please
expect "a command is no reading" wait_until 20 shows "Training status" "did not sound like this"
expect "so that the sentence stays" equal "$(shown "Sentence to read")" "$second"
expect "until it is read" say_until shows Progress "Sentence 3 of 21" -- "$second"
written=$(pad_text)

xdotool key Escape
expect "the window closes" wait_until 10 training_is_gone
expect "what was said to it was no command" stays_so 2 terminals_are 0
expect "nor text" equal "$(pad_text)" "$written"
expect "nothing was learnt" test ! -e "$XDG_DATA_HOME/corvane/voice.mllr"

expect "the program goes on" say_until pad_is_gone -- quit dictation
expect "and hears commands" say_until terminals_are 1 -- run notepad please
