#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: installed_it_starts_from_a_folder_of_ones_own.bash BUILD_FOLDER
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

prefix="$scratch/a prefix"
own=$XDG_DATA_HOME/corvane/program
delivered=$prefix/lib/corvane/data
mkdir "$scratch/program"

start_installed() {
    "$prefix/bin/corvane" > "$scratch/program/output.txt" 2>&1 &
    program=$!
    expect "the program listens" becomes_ready
}
end_program() {
    kill "$program"
    wait "$program" || true
    program=
}
in_own_folder_lie() { equal "$(cd "$own" && find . -type f | sort)" "$(cd "$1" && find . -type f | sort)"; }

cmake --install "$1" --strip --prefix "$prefix" > /dev/null
before=$(cd "$prefix" && find . -type f -exec md5sum {} + | sort)
decline_training "$XDG_CONFIG_HOME"

start_installed
expect "all data files lie in a folder of one's own" in_own_folder_lie "$delivered"
expect "the executable lies there as a link" \
    equal "$(readlink "$own/corvane")" "$prefix/lib/corvane/corvane"
expect "the delivered keyword starts its program" say_until terminals_are 1 -- run notepad please
end_program

printf 'editor\r\n/usr/bin/xterm.exe\r\n' > "$own/keywords.txt"
echo "<!-- of the next version -->" >> "$delivered/help.html"
start_installed
expect "what was taught is kept by an upgrade" \
    equal "$(tr -d '\r' < "$own/keywords.txt")" "editor"$'\n'"/usr/bin/xterm.exe"
expect "the help is the next version's" cmp "$delivered/help.html" "$own/help.html"
end_program

truncate -s -"$(printf '<!-- of the next version -->\n' | wc -c)" "$delivered/help.html"
expect "nothing was written where all people share the program" \
    equal "$(cd "$prefix" && find . -type f -exec md5sum {} + | sort)" "$before"
