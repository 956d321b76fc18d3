#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: every_control_has_a_name_a_role_and_a_state.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"
source "$here/dictation.bash"
source "$here/accessible.bash"

start_program "$1" "$scratch/program"
expect "the splash is there" wait_until 10 window_is_there "$splash"
expect "it says what it is" wait_until 10 has_part "$splash" 'label "Title" \(KT Corvane 3\.0\) read-only'
expect "the program listens" becomes_ready

walk "$main_window" \
    'list "Command list" \(Double click a command for a description .*\) focusable .*' \
    'list item "Reboot" focusable selectable \[Select, Activate\]' \
    'progress bar "Hard drive free space" \([0-9]+%\) [0-9]+ of 0 to 100 read-only.*' \
    'progress bar "Available physical memory" \([0-9]+%\) [0-9]+ of 0 to 100 read-only.*' \
    'progress bar "Microphone level" [0-9]+ of 0 to 100 read-only.*' \
    'progress bar "Voice level" [0-9]+ of 0 to 100 read-only.*' \
    'text "Microphone level number" focusable editable .*' \
    'text "Voice level number" focusable editable .*' \
    'text "Whiteboard" focusable editable multi-line .*' \
    'text "Recognition log" focusable focused editable multi-line .*' \
    'push button "Read" focusable \[Press, SetFocus\]' \
    'push button "Clear" focusable \[Press, SetFocus\]' \
    'panel "Internet Connection Status"' \
    'image "Connection picture"' \
    'label "Connection" \(.+\) read-only' \
    'panel "CD-ROM Status"' \
    'image "CD tray picture"' \
    'label "CD tray" \(Closed\) read-only' \
    'menu item "File" \[ShowMenu\]' \
    'menu item "Help" \[ShowMenu\]'
expect "all commands are listed" \
    equal "$("$tools/describe-window" "$main_window" | grep -c 'list item')" 27

act "$main_window" "Help" ShowMenu
expect "the open menu shows its entries" \
    wait_until 10 has_part "$main_window" 'menu item "Help Documentation".* \[Press\]'
expect "and misses nothing" misses_nothing "$main_window"
act "$main_window" "About KT Corvane" Press
expect "the about box is there" wait_until 10 window_is_there "$splash"
walk "$splash" \
    'push button "Ok" focusable focused \[Press, SetFocus\]' \
    'image "Product picture"' \
    'label "Title" \(KT Corvane 3\.0\) read-only'
act "$splash" "Ok" Press
expect "its button is pressed without a hand" wait_until 10 window_gone "$splash"

expect "the calendar opens" say_until window_is_there "$calendar" -- show me the calendar
walk "$calendar" \
    'table "Calendar" \(Thursday, 18 October 2001\) .*' \
    'push button "Previous month" \[Press\]' \
    'push button "Next month" \[Press\]' \
    'push button "October" \(Month\) .*' \
    'push button "2001" \(Year\) .*' \
    'table cell "Thursday, 18 October 2001" focusable focused selectable selected \[Select\]' \
    'table cell "Sunday, 30 September 2001" focusable selectable \[Select\]' \
    'table cell "Thursday, 1 November 2001" focusable selectable \[Select\]'
act "$calendar" "Thursday, 1 November 2001" Select
expect "a day is chosen without a hand" wait_until 10 month_is "1 November 2001"
expect "and tells that it is" wait_until 10 has_part "$calendar" \
    'table cell "Thursday, 1 November 2001" focusable focused selectable selected \[Select\]'

expect "the pad opens" say_until window_is_there "$pad" -- dictation pad
walk "$pad" \
    'text "Dictated text" focusable focused editable multi-line .*' \
    'text "Dictation log" focusable editable multi-line .*' \
    'push button "Train Profile" focusable \[Press, SetFocus\]' \
    'push button "Close" focusable \[Press, SetFocus\]' \
    'label "Say "quit dictation" to exit Dictation Pad\." read-only'
act "$pad" "Train Profile" Press
expect "a sentence is asked for" wait_until 10 window_is_there Training
walk Training \
    'text "Enter a sentence" focusable focused editable .*' \
    'push button "OK" .*' \
    'push button "Cancel" .*'
