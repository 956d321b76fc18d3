#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: the_help_menu_opens_the_page.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

# The person's browser is one that writes down what it is asked to show.
mkdir -p "$XDG_DATA_HOME/applications"
cat > "$XDG_DATA_HOME/applications/browser.desktop" << END
[Desktop Entry]
Type=Application
Name=Browser
Exec=/bin/sh $scratch/browser %u
MimeType=text/html;
END
echo 'echo "$1" >> "$(dirname "$0")/shown"' > "$scratch/browser"
printf '[Default Applications]\ntext/html=browser.desktop\n' > "$XDG_CONFIG_HOME/mimeapps.list"

start_and_wait "$1"
window=$(xdotool search --onlyvisible --name "^$main_window\$")
ask_for_help() {
    xdotool windowactivate --sync "$window" key alt+h
    wait_until 10 menu_is_open
    xdotool key l
}
menu_is_open() { [[ $(xdotool search --onlyvisible --pid "$program" 2> /dev/null | wc -l) -gt 1 ]]; }
shown_are() { [[ $(cat "$scratch/shown" 2> /dev/null | wc -l) == "$1" ]]; }

expect "the Help menu opens by Alt+H" ask_for_help
expect "the browser is asked for a page" wait_until 20 shown_are 1
page=$(head -n 1 "$scratch/shown")
expect "it is the one beside the program" equal "${page#file://}" "$scratch/program/help.html"
expect "the page is there" test -s "${page#file://}"
expect "the program goes on" program_is_running
expect "the menu opens again" ask_for_help
expect "the page is opened each time" wait_until 20 shown_are 2
