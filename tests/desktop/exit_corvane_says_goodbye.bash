#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: exit_corvane_says_goodbye.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

start_and_wait "$1"
parec --raw --rate=16000 --channels=1 --format=s16le --device=corvane_speaker.monitor \
    > "$scratch/spoken.raw" &
recorder=$!
expect "the process ends" say_until program_has_ended -- exit corvane
# The voice gets a second for its goodbye; the words' silence and the hearing come before it.
took=$((($(date +%s%N) - said) / 1000000))
expect "within 2.3 seconds of the words' end (it took $took ms)" test "$took" -le 2300
kill "$recorder"
expect "goodbye was to be heard" test "$(loudness "$scratch/spoken.raw")" -gt 100
status=0
wait "$program" || status=$?
program=
expect "it ended without an error" equal "$status" 0
