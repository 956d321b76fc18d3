#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: hidden_in_the_tray_it_still_hears.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

main_window_gone() { ! window_is_there "$main_window"; }

start_and_wait "$1"
expect "the window is away" say_until main_window_gone -- hide corvane
expect "a command works all the same" say_until terminals_are 1 -- run notepad please
expect "the window is back" say_until window_is_there "$main_window" -- show corvane

expect "the window is away again" say_until main_window_gone -- hide corvane
expect "called it comes back too" say_until window_is_there "$main_window" -- where are you
