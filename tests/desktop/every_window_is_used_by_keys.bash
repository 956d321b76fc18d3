#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: every_window_is_used_by_keys.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"
source "$here/dictation.bash"
source "$here/accessible.bash"

start_and_wait "$1"
to_front "$main_window"
keys_go_through Tab "$main_window" \
    'text "Recognition log"' \
    'text "Microphone level number"' \
    'text "Whiteboard"' \
    'push button "Read"' \
    'push button "Clear"' \
    'text "Voice level number"' \
    'list item "Add Program"' \
    'text "Recognition log"'
# Beyond these a button would hand Shift over to the whiteboard, as it does with every key but Tab.
keys_go_through shift+Tab "$main_window" \
    'text "Recognition log"' \
    'list item "Add Program"' \
    'text "Voice level number"' \
    'push button "Clear"'
xdotool key shift
expect "a button keeps no key" wait_until 10 focus_is "$main_window" 'text "Whiteboard"'
xdotool type "read this"
xdotool key alt+c
whiteboard_is() { [[ $("$tools/read-window" "$main_window" Whiteboard 2> /dev/null) == "$1" ]]; }
expect "Alt+C clears the whiteboard" wait_until 10 whiteboard_is ""
expect "and has the focus" wait_until 10 focus_is "$main_window" 'push button "Clear"'
xdotool key Tab Tab Down
expect "an arrow chooses a command" wait_until 10 focus_is "$main_window" 'list item "Are you there"'
xdotool key alt+f
expect "Alt+F opens a menu" wait_until 10 focus_is "$main_window" 'menu item "Exit"'
xdotool key Right
expect "an arrow leads to the next one" \
    wait_until 10 focus_is "$main_window" 'menu item "Help Documentation"'
xdotool key a
expect "a letter chooses its entry" wait_until 10 window_is_there "$splash"
expect "Ok has the focus" wait_until 10 focus_is "$splash" 'push button "Ok"'
xdotool key Return
expect "Enter presses it" wait_until 10 window_gone "$splash"

open_add_programs
to_front "$add_programs"
keys_go_through Tab "$add_programs" \
    'table cell "notepad"' \
    'text "Keyword"' \
    'text "Path"' \
    'push button "Browse"' \
    'push button "Clear All"' \
    'check box "Search for existing"' \
    'table cell "notepad"'
keys_go_through shift+Tab "$add_programs" 'table cell "notepad"' 'check box "Search for existing"'
xdotool key space
expect "Space takes the tick away" \
    wait_until 10 has_part "$add_programs" 'check box "Search for existing" focusable focused \[.*'
xdotool key space Tab Tab Tab
xdotool type x
expect "what is typed enables Add" \
    wait_until 10 has_part "$add_programs" 'push button "Add" focusable default \[.*'
xdotool key Return
expect "Enter presses the default button" wait_until 10 window_is_there "Error"
xdotool key Return
expect "and answers the message" wait_until 10 window_gone "Error"
xdotool key alt+b
expect "Alt+B asks for a file" wait_until 10 window_is_there "Open exe file path"
xdotool key Escape
expect "Escape cancels" wait_until 10 window_gone "Open exe file path"
xdotool key alt+c
expect "Alt+C asks whether to clear" wait_until 10 window_is_there "WARNING!"
xdotool key alt+n
expect "Alt+N says no" wait_until 10 window_gone "WARNING!"
close_by_frame "$add_programs"

expect "the calendar opens" say_until window_is_there "$calendar" -- show me the calendar
to_front "$calendar"
xdotool key Right
expect "an arrow leads to the next day" wait_until 10 month_is "19 October 2001"
xdotool key Page_Down
expect "Page Down to the next month" wait_until 10 month_is "19 November 2001"
expect "where the focus is" wait_until 10 focus_is "$calendar" 'table cell "Monday, 19 November 2001"'
close_by_frame "$calendar"

expect "the pad opens" say_until window_is_there "$pad" -- dictation pad
to_front "$pad"
expect "the text has the focus" wait_until 10 focus_is "$pad" 'text "Dictated text"'
xdotool key Tab
keys_go_through Tab "$pad" \
    'text "Dictation log"' \
    'push button "Close"' \
    'push button "Train Profile"' \
    'text "Dictated text"'
xdotool key alt+t
expect "Alt+T asks for a sentence" wait_until 10 window_is_there Training
