#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# What belongs to a desktop is known by the desktop's folder in its environment.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

belonging_to() { grep -lzs "^CORVANE_VIRTUAL_DESKTOP=$1\$" /proc/[0-9]*/environ || true; }
nothing_belongs_to() { [[ -z $(belonging_to "$1") ]]; }

cat > "$scratch/command" << 'COMMAND'
trap "" TERM
xterm &
setsid bash -c 'trap "" TERM HUP; while :; do sleep 0.1; done' < /dev/null > /dev/null 2>&1 &
(setsid sleep 1000 < /dev/null > /dev/null 2>&1 &)
until xdotool search --class xterm > /dev/null 2>&1; do sleep 0.1; done
echo "$CORVANE_VIRTUAL_DESKTOP"
grep -lzs "^CORVANE_VIRTUAL_DESKTOP=$CORVANE_VIRTUAL_DESKTOP\$" /proc/[0-9]*/environ | wc -l
COMMAND
mapfile -t said < <("$tools/virtual-desktop" bash "$scratch/command")
expect "the command and its children ran, and the servers" test "${said[1]}" -ge 8
expect "no process is left" nothing_belongs_to "${said[0]}"
expect "the folder is gone" test ! -e "${said[0]}"

# The same when the desktop is told to end in the middle of a command.
"$tools/virtual-desktop" bash -c "echo \$CORVANE_VIRTUAL_DESKTOP > '$scratch/folder'; sleep 1000" &
desktop=$!
expect "the second desktop is there" wait_until 30 test -s "$scratch/folder"
kill "$desktop"
status=0
wait "$desktop" || status=$?
folder=$(< "$scratch/folder")
expect "the status names the signal" equal "$status" 143
expect "no process is left of the second" nothing_belongs_to "$folder"
expect "the second folder is gone" test ! -e "$folder"
