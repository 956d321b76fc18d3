# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# Words for what is dictated. To be sourced.

pad="Dictation Pad"
sentence="the committee will meet again on monday morning"

pad_text() { "$tools/read-window" "$pad" "Dictated text" 2> /dev/null; }
pad_text_has() { [[ $(pad_text | tr "[:upper:]" "[:lower:]") == *"$1"* ]]; }
pad_text_is() { [[ $(pad_text) == "$1" ]]; }
pad_is_gone() { ! window_is_there "$pad"; }

dictation_log() { "$tools/read-window" "$pad" "Dictation log" 2> /dev/null; }

# What was recognised last while dictating; empty before.
last_dictated() {
    dictation_log | sed -n 's/.*, Recognition,  \[Text=\(.*\)\] \[Confidence=.*/\1/p' | tail -n 1
}
