#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

status=0
"$tools/read-window" "No such window" "Recognition log" 2> "$scratch/message" || status=$?
expect "the status is 1" equal "$status" 1
expect "the message says so" grep -q 'there is no window "No such window"' "$scratch/message"

status=0
"$tools/describe-window" --faults "No such window" 2> "$scratch/message" || status=$?
expect "it has no description either" equal "$status" 1
expect "and the message says why" grep -q 'there is no window "No such window"' "$scratch/message"

status=0
"$tools/act-on-window" "No such window" "Read" "Press" 2> "$scratch/message" || status=$?
expect "nor can anything be done with it" equal "$status" 1
expect "as the message says" grep -q 'there is no window "No such window"' "$scratch/message"
