#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_gauges_tell_disk_and_memory.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

# As df and the kernel's table tell it; half a percent may have come or gone between two looks.
disk_free() {
    stat --file-system --format='%f %b' "$scratch/program" | awk '{ printf "%d", 100 * $1 / $2 + 0.5 }'
}
memory_free() {
    awk '/^MemTotal:/ { t = $2 } /^MemAvailable:/ { a = $2 } END { printf "%d", 100 * a / t + 0.5 }' \
        /proc/meminfo
}
shown() { "$tools/read-window" "$main_window" "$1" 2> /dev/null; }
# shows CONTROL COMMAND: whether the gauge shows what the command tells, to one percent.
shows() {
    local gauge real
    gauge=$(shown "$1")
    real=$($2)
    gauge=${gauge%\%}
    [[ $gauge =~ ^[0-9]+$ ]] && ((gauge >= real - 1 && gauge <= real + 1))
}

start_and_wait "$1"
expect "the disk's gauge tells $(disk_free)%" wait_until 10 shows "Hard drive free space" disk_free
expect "the memory's gauge tells $(memory_free)%" \
    wait_until 10 shows "Available physical memory" memory_free

# Beside the dial the window shows through; on it there are many colours.
window=$(xdotool search --onlyvisible --name "^$main_window\$")
import -window "$window" "$scratch/window.png"
colours() { convert "$scratch/window.png" -crop "$1" +repage -unique-colors -format '%w' info:; }
eval "$(xdotool getwindowgeometry --shell "$window")"
right=$((WIDTH - 624 + 482))  # the window's client area is 624 wide
lower=$((HEIGHT - 428 + 27))  # and 428 high, below its menu bar
expect "the dial is a gradient" test "$(colours "80x80+$((right + 10))+$((lower + 4))")" -gt 100
expect "its corner is the window's own" test "$(colours "8x8+$right+$lower")" -eq 1
kill "$program"
wait "$program" || true
program=
