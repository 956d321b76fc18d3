#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: speech_in_the_microphone_starts_a_program.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"

start_and_wait "$1"
expect "no terminal before" terminals_are 0
expect "a terminal has appeared" say_until terminals_are 1 -- run notepad please
expect "the log tells the phrase once" accepted_are 1 "run notepad please"
expect "nothing else was accepted" accepted_are 1
