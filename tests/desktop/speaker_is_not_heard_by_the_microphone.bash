#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

flite -voice slt -t "run notepad please" -o "$scratch/said.wav"
record_while "$scratch/heard.raw" paplay "$scratch/said.wav"
expect "something was recorded" test -s "$scratch/heard.raw"
expect "it is the silence of the room" test "$(loudness "$scratch/heard.raw")" -lt 100
