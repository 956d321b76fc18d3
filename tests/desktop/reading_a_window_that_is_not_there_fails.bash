#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

status=0
"$tools/read-window" "No such window" "Recognition log" 2> "$scratch/message" || status=$?
expect "the status is 1" equal "$status" 1
expect "the message says so" grep -q 'there is no window "No such window"' "$scratch/message"
