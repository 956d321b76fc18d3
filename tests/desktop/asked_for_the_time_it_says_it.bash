#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: asked_for_the_time_it_says_it.bash EXECUTABLE CORVANE-HEAR
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
executable=$1
hear=$2

# zone_where_it_is HOUR MINUTE: a time zone in which it is that time of day now.
zone_where_it_is() {
    local now minutes
    now=$(date -u +%s)
    minutes=$((now / 60 % 1440 - $1 * 60 - $2))
    # A zone tells what to add to its time to come back to UTC.
    printf 'HERE%s%d:%02d' "$( ((minutes >= 0)) || echo -)" \
        $((${minutes#-} / 60)) $((${minutes#-} % 60))
}

# Every time of day that can be said.
/usr/bin/python3 - > "$scratch/times.xml" << 'PYTHON'
ones = """zero one two three four five six seven eight nine ten eleven twelve thirteen fourteen
          fifteen sixteen seventeen eighteen nineteen""".split()
minutes = ["zero"] + ["zero " + one for one in ones[1:10]] + ones[10:]
for ten in "twenty", "thirty", "forty", "fifty":
    minutes += [ten] + [f"{ten} {one}" for one in ones[1:10]]

def choice(words):
    return "<P><L>" + "".join(f"<P>{word}</P>" for word in words) + "</L></P>"

print('<GRAMMAR LANGID="409"><RULE NAME="time" TOPLEVEL="ACTIVE"><P>the time is</P>',
      choice(ones[1:13]), choice(minutes), choice(["a m", "p m"]), "</RULE></GRAMMAR>")
PYTHON

# answer VOICE: what is said to the question, in words.
answer() {
    local spoken
    spoken=$(record_speaker "$tools/say-into-mic" --voice "$1" what time is it)
    "$hear" --grammar "$scratch/times.xml" "$spoken" |
        awk -F '\t' '$2 == "recognition" { print $9 }'
}

# says_at HOUR MINUTE WORDS: asked at that time, it says these words, or the one pattern in them.
# The recogniser does not always hear a synthetic voice right, so two others may ask once more; of the
# 1440 answers a wrong one would hardly be taken for this one.
says_at() {
    local said right= voice
    TZ=$(zone_where_it_is "$1" "$2")
    export TZ
    start_and_wait "$executable"
    for voice in slt rms awb; do
        said=$(answer "$voice")
        echo "asked by $voice: $said"
        ! grep -qxE "the time is $3" <<< "$said" || right=yes
        [[ -z $right ]] || break
    done
    expect "at $1:$2 it says so" test -n "$right"
    kill "$program"
    wait "$program" || true
    program=
}

# A minute may go by until the question.
says_at 18 22 "six twenty (two|three|four) p m"
says_at 6 46 "six forty (six|seven|eight) a m"
