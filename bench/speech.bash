# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# What the scripts here share. To be sourced; expects the folder of the built programs in $bin.

bench=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# speak FOLDER: each saying of the tests in three voices, a sound file each.
speak() {
    local voice rule text number=0
    for voice in slt rms awb; do
        while IFS=$'\t' read -r rule text; do
            flite -voice "$voice" -t "$text" -o "$1/$((number += 1)).wav"
        done < "$bench/../tests/engine/sayings.txt"
    done
}

# median: the middle one of the numbers on the input.
median() { sort -n | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'; }
