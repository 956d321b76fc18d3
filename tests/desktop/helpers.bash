# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# Small words of the desktop tests. To be sourced.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$here/../../tools/on_desktop.bash"

scratch=$(mktemp -d)
program=
clean_up() {
    [[ -z $program ]] || kill "$program" 2> /dev/null || true
    rm -rf "$scratch"
}
trap clean_up EXIT

# expect WHAT COMMAND...: ends the test when the command fails.
expect() {
    local what=$1
    shift
    if "$@"; then
        echo "ok: $what"
        return
    fi
    echo "FAILED: $what" >&2
    if [[ -n $program ]]; then
        echo "Recognition log:" >&2
        recognition_log >&2 || true
        cat "$scratch/program/output.txt" >&2
    fi
    exit 1
}

equal() {
    [[ $1 == "$2" ]] || {
        echo "\"$1\" is not \"$2\"" >&2
        return 1
    }
}

# The program on this desktop, listening.
start_and_wait() {
    start_program "$1" "$scratch/program"
    expect "the program listens" becomes_ready
}

# record_while FILE COMMAND...: what the default source gives meanwhile; 16 bit, mono, 16 kHz.
record_while() {
    local file=$1 recorder status=0
    shift
    parec --raw --rate=16000 --channels=1 --format=s16le --latency-msec=20 > "$file" &
    recorder=$!
    expect "the recorder listens" wait_until 10 something_listens
    "$@" || status=$?
    kill "$recorder"
    wait "$recorder" || true
    return $status
}

# loudness FILE: root mean square of a recording, 0 to 32767.
loudness() {
    /usr/bin/python3 - "$1" << 'PYTHON'
import array, math, sys
samples = array.array("h", open(sys.argv[1], "rb").read())
print(round(math.sqrt(sum(s * s for s in samples) / max(1, len(samples)))))
PYTHON
}

# record_speaker COMMAND...: what the speaker plays from the command on until it is silent again;
# prints the name of a WAV file.
record_speaker() {
    local recorder file="$scratch/spoken.raw"
    parec --raw --rate=16000 --channels=1 --format=s16le --device=corvane_speaker.monitor \
        > "$file" &
    recorder=$!
    "$@"
    wait_until 30 has_been_heard_out "$file" || true
    kill "$recorder"
    wait "$recorder" || true
    to_wav "$file"
}

# has_been_heard_out RECORDING: there was sound, and none in the last second.
has_been_heard_out() {
    # Both looks are at the same moment: the recording goes on meanwhile.
    cp "$1" "$1.so_far"
    (($(stat -c %s "$1.so_far") > 16000 * 2)) || return 1
    tail -c $((16000 * 2)) "$1.so_far" > "$1.tail"
    (($(loudness "$1.so_far") > 50 && $(loudness "$1.tail") < 5))
}

# to_wav RECORDING: as a WAV file, whose name is printed.
to_wav() {
    /usr/bin/python3 - "$1" << 'PYTHON'
import sys, wave
with wave.open(sys.argv[1] + ".wav", "wb") as wav:
    wav.setparams((1, 2, 16000, 0, "NONE", ""))
    wav.writeframes(open(sys.argv[1], "rb").read())
PYTHON
    echo "$1.wav"
}

# say_until CONDITION... -- WORDS...: no phrase is heard right each time, least of all a word alone or
# free speech, so three voices try in turn, and one of them slowly; fails when the condition holds after
# none of them. The end of the words that were said last is in $said, in nanoseconds.
say_until() {
    local condition=() voice
    while [[ $1 != -- ]]; do
        condition+=("$1")
        shift
    done
    shift
    for voice in rms slt awb "slt --slowly"; do
        "$tools/say-into-mic" --voice $voice "$@" # a name, and perhaps an option
        said=$(($(date +%s%N) - 300000000)) # the silence behind the words
        ! wait_until 10 "${condition[@]}" || return 0
    done
    return 1
}
