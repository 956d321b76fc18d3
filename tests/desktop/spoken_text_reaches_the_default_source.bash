#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

flite -voice slt -t "run notepad please" -o "$scratch/said.wav"
bytes_said=$(($(stat -c %s "$scratch/said.wav") - 44))

record_while "$scratch/text.raw" "$tools/say-into-mic" run notepad please
expect "spoken text is loud" test "$(loudness "$scratch/text.raw")" -gt 1000
expect "all of it was heard" test "$(stat -c %s "$scratch/text.raw")" -ge "$bytes_said"

record_while "$scratch/file.raw" "$tools/say-into-mic" "$scratch/said.wav"
expect "a played file is loud" test "$(loudness "$scratch/file.raw")" -gt 1000

record_while "$scratch/voice.raw" "$tools/say-into-mic" --voice rms good morning
expect "another voice is loud" test "$(loudness "$scratch/voice.raw")" -gt 1000

status=0
"$tools/say-into-mic" "$scratch/missing.wav" 2> "$scratch/message" || status=$?
expect "a missing file is refused" equal "$status" 1
expect "its name is told" grep -q missing.wav "$scratch/message"
