#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: dictated_text_is_printed.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"
source "$here/dictation.bash"
source "$here/accessible.bash"

printing=$(dirname "$CUPS_SERVER")
page="$printing/jobs/d00001-001"
"$tools/print-server" "$printing" &

printer_is_there() { [[ -S $CUPS_SERVER ]]; }
dialog_is_there() { window_is_there Print; }
page_is_out() { [[ -s $page ]]; }

# One phrase is taken back, whichever was heard last.
scratches() {
    local before last
    before=$(pad_text)
    last=$(last_dictated)
    "$tools/say-into-mic" --voice "$1" scratch that
    wait_until 6 heard_scratch_that || return 1
    expect "just that phrase is gone" wait_until 10 pad_text_is "${before%"$last "}"
}
heard_scratch_that() { [[ $(last_dictated) == "scratch that" ]]; }
scratches_with_some_voice() { scratches slt || scratches rms || scratches awb; }

expect "there is a printer" wait_until 10 printer_is_there
start_and_wait "$1"
expect "the pad opens" say_until window_is_there "$pad" -- dictation pad
expect "a sentence is written" say_until pad_text_has monday -- "$sentence"
expect "the words of the page ask for the printer" say_until dialog_is_there -- print page
written=$(pad_text)
walk Print \
    'push button "Print" focusable default \[Press, SetFocus\]' \
    'push button "Cancel" focusable \[Press, SetFocus\]' \
    'push button "Choose the output file" .*'
xdotool key Escape
expect "the page comes out although the dialog was cancelled" wait_until 10 page_is_out
expect "with what was written" equal "$(pdftotext "$page" - | tr -s '\n\f' '  ')" "$written"
expect "the words that asked for it stand behind it" wait_until 10 pad_text_is "${written}print page "
expect "a phrase is taken back" scratches_with_some_voice

expect "the pad is closed by voice" say_until pad_is_gone -- quit dictation
"$tools/say-into-mic" --voice rms run notepad please
expect "commands are heard again" wait_until 10 terminals_are 1
