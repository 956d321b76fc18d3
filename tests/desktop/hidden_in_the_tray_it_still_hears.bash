#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: hidden_in_the_tray_it_still_hears.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

main_window_gone() { ! window_is_there "$main_window"; }

start_and_wait "$1"
"$tools/say-into-mic" --voice rms hide corvane
expect "the window is away" wait_until 10 main_window_gone
"$tools/say-into-mic" --voice rms run notepad please
expect "a command works all the same" wait_until 10 terminals_are 1
"$tools/say-into-mic" --voice rms show corvane
expect "the window is back" wait_until 10 window_is_there "$main_window"

"$tools/say-into-mic" --voice rms hide corvane
expect "the window is away again" wait_until 10 main_window_gone
"$tools/say-into-mic" --voice rms where are you
expect "called it comes back too" wait_until 10 window_is_there "$main_window"
