#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_launcher_says_what_stands_in_its_way.bash BUILD_FOLDER
set -euo pipefail

# Small disks of the test's own can be mounted in a name space of its own.
if [[ ${CORVANE_OWN_MOUNTS:-} != yes ]]; then
    if ! unshare --user --map-root-user --mount true; then
        echo "skipped: this system gives nobody mounts of their own"
        exit 77
    fi
    exec env CORVANE_OWN_MOUNTS=yes unshare --user --map-root-user --mount "$0" "$@"
fi
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

prefix=$scratch/prefix
data=$scratch/data
own=$data/corvane/program
mkdir "$data" "$scratch/program"
cmake --install "$1" --strip --prefix "$prefix" > /dev/null
decline_training "$XDG_CONFIG_HOME"

start_installed() {
    XDG_DATA_HOME=$data "$prefix/bin/corvane" > "$scratch/program/output.txt" 2>&1 &
    program=$!
}
told() { grep -qF "$1" "$scratch/program/output.txt"; }
refuses() {
    start_installed
    expect "a window says so" wait_until 20 window_is_there "KT Corvane"
    expect "it names the reason: $1" told "$1"
    xdotool search --onlyvisible --name '^KT Corvane$' windowactivate --sync
    xdotool key Return
    expect "behind it the launcher ends" wait_until 10 program_has_ended
    local status=0
    wait "$program" || status=$?
    program=
    expect "its exit status tells it too" equal "$status" 1
}
half_written() { find "$own" -name '*.new' | grep -q .; }

mount -t tmpfs -o size=32k tmpfs "$data"
refuses "No space left on device"
expect "nothing is left half written" eval '! half_written'
expect "what stands there is whole" cmp "$prefix/lib/corvane/data/calendar.xml" "$own/calendar.xml"

mount -o remount,size=1m tmpfs "$data"
start_installed
expect "with more room it starts" wait_until 20 window_is_there "$splash"
kill "$program"
wait "$program" || true

head -c 2000000 /dev/zero > "$data/fill" 2> /dev/null || true
cp "$own/help.html" "$scratch/help.html"
head -c 100000 /dev/zero >> "$prefix/lib/corvane/data/help.html"
start_installed
expect "with no room for the next version's files it starts all the same" \
    wait_until 20 window_is_there "$splash"
expect "it says which stays as it was" told "the old one stays. $own/help.html: No space left on device"
expect "that one is whole" cmp "$own/help.html" "$scratch/help.html"
kill "$program"
wait "$program" || true
program=

rm -r "$data/corvane" "$data/fill"
mount -o remount,ro tmpfs "$data"
refuses "$own: Read-only file system"

mount -o remount,rw tmpfs "$data"
rm "$prefix/lib/corvane/corvane"
refuses "$prefix/lib/corvane/corvane: No such file or directory"
rm -r "$prefix/lib/corvane/data"
refuses "not installed as a whole. Install it again. $prefix/lib/corvane/data: No such file or directory"
umount "$data"
