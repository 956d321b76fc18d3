#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: add_programs_is_used_without_eyes_or_hands.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"
source "$here/accessible.bash"

start_and_wait "$1"
open_add_programs
walk "$add_programs" \
    'table "Programs" focusable focused .*' \
    'table column header "Program Name"' \
    'table column header "Program Path"' \
    'table cell "notepad" .*\[Select, Activate\]' \
    'table cell "/usr/bin/xterm.exe" .*\[Select, Activate\]' \
    'text "Keyword" focusable editable .*' \
    'text "Path" focusable editable .*' \
    'push button "Browse" focusable \[Press, SetFocus\]' \
    'push button "Add" focusable disabled' \
    'push button "Delete" focusable disabled' \
    'push button "Clear All" focusable \[Press, SetFocus\]' \
    'check box "Search for existing" focusable checked \[Toggle, SetFocus\]'

act "$add_programs" "Search for existing" Toggle
expect "the box tells that it is not ticked" \
    wait_until 10 has_part "$add_programs" 'check box "Search for existing" focusable \[.*'

act "$add_programs" "notepad" Select
expect "a row is chosen" wait_until 10 keyword_box_is notepad
expect "which can be deleted now" \
    wait_until 10 has_part "$add_programs" 'push button "Delete" focusable \[Press, SetFocus\]'
act "$add_programs" "Add" Press
expect "a message comes" wait_until 10 window_is_there "Error 1001: Entry already exists"
walk "Error 1001: Entry already exists" \
    'image "Error"' \
    'label "That command already exists\.  Please delete it first\." .*' \
    'push button "OK" .*\[Press, SetFocus\]'
act "Error 1001: Entry already exists" "OK" Press
expect "and goes" wait_until 10 window_gone "Error 1001: Entry already exists"

act "$add_programs" "Browse" Press
expect "a file is asked for" wait_until 10 window_is_there "Open exe file path"
walk "Open exe file path" \
    'text "File name:" focusable focused editable .*' \
    'push button "Cancel" .*\[Press, SetFocus\]'
act "Open exe file path" "Cancel" Press
expect "the dialog goes" wait_until 10 window_gone "Open exe file path"

act "$add_programs" "Clear All" Press
expect "it asks first" wait_until 10 window_is_there "WARNING!"
walk "WARNING!" \
    'image "Question"' \
    'push button "Yes" .*\[Press, SetFocus\]' \
    'push button "No" .*\[Press, SetFocus\]'
act "WARNING!" "No" Press
expect "the question goes" wait_until 10 window_gone "WARNING!"

row_is_gone() { ! has_part "$add_programs" 'table cell "notepad".*'; }
act "$add_programs" "notepad" Activate
expect "what a double click does is done" wait_until 10 row_is_gone
expect "and no more than that: the file keeps its last entry" \
    store_is "$(printf 'notepad\n/usr/bin/xterm.exe')"
