#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: foreign_speech_starts_nothing.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

start_and_wait "$1"
"$tools/say-into-mic" "the weather was lovely when we walked along the river yesterday"
"$tools/say-into-mic" --voice rms "she has forgotten to water the tomatoes again"
"$tools/say-into-mic" --voice awb "nobody expected the train from Edinburgh to be early"

# The program still hears: a command in between would be carried out.
expect "the command afterwards is heard" say_until terminals_are 1 -- run notepad please
expect "only the command was accepted" stays_so 3 accepted_are 1
expect "only the command started something" terminals_are 1
