#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: markup_in_a_keyword_deafens_until_it_is_deleted.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

start_and_wait "$1"
open_add_programs
for keyword in 'a<b' 'a & b' 'a "b"'; do
    accepted_before=$(accepted)
    terminals_before=$(terminals || true)
    teach "$keyword" "/usr/bin/xclock.exe"
    "$tools/say-into-mic" --voice rms run notepad please
    expect "with $keyword no command is heard" stays_so 3 accepted_are "$accepted_before"

    click_row 2
    expect "its row is chosen" wait_until 10 keyword_box_is "$keyword"
    click_delete
    expect "it is deleted" wait_until 10 keyword_box_is ""
    expect "commands are heard again" \
        say_until terminals_are $((terminals_before + 1)) -- run notepad please
done
