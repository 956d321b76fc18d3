#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: on_a_disk_without_room_a_taught_word_is_reported.bash EXECUTABLE
set -euo pipefail
if [[ -z ${OWN_MOUNTS:-} ]]; then
    as=()
    ((EUID == 0)) || as=(--user --map-root-user)
    if ! unshare "${as[@]}" --mount true; then
        echo "skipped: this system gives nobody mounts of their own"
        exit 77
    fi
    OWN_MOUNTS=yes exec unshare "${as[@]}" --mount --propagation private "$0" "$@"
fi
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

folder=$scratch/program
mkdir "$folder"
mount -t tmpfs -o size=256m none "$folder"
# The program's own words lie elsewhere, or the disk could not become read only.
ln -s ../output.txt "$folder/output.txt"
end_all() {
    [[ -z $program ]] || kill -KILL "$program" 2> /dev/null || true
    umount --lazy "$folder"
    clean_up
}
trap end_all EXIT

files() { (cd "$folder" && find . -type f ! -name filler "$@" -exec sha256sum {} + | sort); }
# Those that Add does not rewrite.
others() { files ! -name keywords.txt ! -name keywords.xml; }
fill() { cat /dev/zero > "$folder/filler" 2> /dev/null || true; }

# start_with_words COUNT: that many more than the one that every test has.
start_with_words() {
    stage_program "$executable" "$folder"
    for ((word = 100; word < 100 + $1; ++word)); do
        printf 'word %d\r\n/usr/bin/true.exe\r\n' "$word" >> "$folder/keywords.txt"
    done
    "$folder/corvane" > "$scratch/output.txt" 2>&1 &
    program=$!
    expect "the program listens" becomes_ready
}

add_and_be_told() {
    click_path_box
    xdotool type "/usr/bin/xterm.exe"
    click_keyword_box
    xdotool type "zimbola"
    expect "the keyword is typed" wait_until 10 keyword_box_is "zimbola"
    click_add
    expect "the failure is reported" wait_until 10 window_is_there "KT Corvane"
    xdotool windowactivate --sync "$(window_of "KT Corvane")" key Return
    expect "and ends the program" wait_until 10 program_has_ended
    program=
}

executable=$1
# 29 bytes and 140 words of 29 bytes fill 4089 of 4096: one word more needs another block.
start_with_words 140
expect "the last block is full" equal "$(stat -c %s "$folder/keywords.txt")" 4089
before=$(others | md5sum)
open_add_programs
fill
add_and_be_told
expect "the file of words is cut off at the end of the disk" \
    equal "$(($(stat -c %s "$folder/keywords.txt") % 4096))" 0
expect "and begins as it was to" equal "$(head -n 1 "$folder/keywords.txt")" $'notepad\r'
expect "no other file is touched" equal "$(others | md5sum)" "$before"

# It starts again as it stands.
rm "$folder/filler"
"$folder/corvane" > "$scratch/output.txt" 2>&1 &
program=$!
expect "it starts with what is left" becomes_ready
expect "and hears" say_until terminals_are 1 -- run notepad please
kill "$program"
wait "$program" || true

start_with_words 1
before=$(files | md5sum)
open_add_programs
mount -o remount,ro "$folder"
add_and_be_told
expect "where nothing may be written nothing is changed" equal "$(files | md5sum)" "$before"
