#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: asked_about_the_machine_it_answers.bash EXECUTABLE CORVANE-HEAR
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
hear=$2

memory=$(awk '/^MemTotal:/ { printf "%d", $2 / 1024 + 0.5 }' /proc/meminfo)
# As df tells it.
disk_free() { stat --file-system --format='%f %b' / | awk '{ printf "%d", 100 * $1 / $2 + 0.5 }'; }

# The right answers, with neighbours and with others that share no word with them: 91 is easily
# heard as 21.
/usr/bin/python3 - "$memory" "$(disk_free)" > "$scratch/answers.xml" << 'PYTHON'
import sys
ones = """zero one two three four five six seven eight nine ten eleven twelve thirteen fourteen
          fifteen sixteen seventeen eighteen nineteen""".split()
tens = ["twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety"]

def words(number):
    if number >= 1000:
        rest = number % 1000
        return words(number // 1000) + " thousand" + (f" {words(rest)}" if rest >= 100 else
                                                      f" and {words(rest)}" if rest else "")
    if number >= 100:
        return ones[number // 100] + " hundred" + (f" and {words(number % 100)}" if number % 100 else "")
    if number < 20:
        return ones[number]
    return tens[number // 10 - 2] + (f" {ones[number % 10]}" if number % 10 else "")

def rule(name, phrase):
    return f'<RULE NAME="{name}" TOPLEVEL="ACTIVE"><P>{phrase}</P></RULE>'

print('<GRAMMAR LANGID="409">')
right = int(sys.argv[2])
for percent in {0, *range(max(right - 2, 0), min(right + 3, 101)), (right + 33) % 100, (right + 66) % 100}:
    print(rule(f"free {percent}", f"drive c has {words(percent)} percent of its space remaining"))
for megabytes in {int(sys.argv[1]), 512, 7777, 65536}:
    print(rule(f"memory {megabytes}", f"you have {words(megabytes)} megabytes of ram installed"))
print("</GRAMMAR>")
PYTHON

# answer_to QUESTION...: the name of the answer that is said.
answer_to() {
    local spoken
    spoken=$(record_speaker "$tools/say-into-mic" "$@")
    "$hear" --grammar "$scratch/answers.xml" "$spoken" |
        awk -F '\t' '$2 == "recognition" { print $3 }'
}

# A percent may have come or gone between two looks.
right_about_the_disk() {
    local off
    [[ $1 == free\ * ]] || return 1
    off=$((${1#free } - $(disk_free)))
    ((${off#-} <= 1))
}
right_about_the_memory() { [[ $1 == "memory $memory" ]]; }

# answers_right CHECK QUESTION...: the recogniser does not always hear a synthetic voice right, so
# two other voices may ask once more.
answers_right() {
    local check=$1 said voice
    shift
    for voice in slt rms awb; do
        said=$(answer_to --voice "$voice" --slowly "$@")
        echo "asked \"$*\", it says: $said"
        ! "$check" "$said" || return 0
    done
    return 1
}

start_and_wait "$1"
expect "it tells the memory, $memory megabytes" answers_right right_about_the_memory how much ram
expect "it tells what is free on the disk, $(disk_free) percent" \
    answers_right right_about_the_disk free space remaining c
