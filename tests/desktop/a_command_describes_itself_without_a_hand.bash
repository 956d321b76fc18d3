#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: a_command_describes_itself_without_a_hand.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/accessible.bash"

start_and_wait "$1"
spoken=$(record_speaker act "$main_window" "Reboot" Activate)
expect "the entry is chosen" \
    has_part "$main_window" 'list item "Reboot" focusable selectable selected .*'
expect "and its description is spoken" test "$(loudness "$scratch/spoken.raw")" -gt 20
expect "which has an end" test -s "$spoken"
