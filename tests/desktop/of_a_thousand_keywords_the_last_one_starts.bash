#!/bin/bash
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
# usage: of_a_thousand_keywords_the_last_one_starts.bash EXECUTABLE
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/helpers.bash"
source "$here/windows.bash"

make_marking_program
stage_program "$1" "$scratch/program"
/usr/bin/python3 - "$scratch/program" "$scratch/My Programs/Marker.exe" << 'PYTHON'
import pathlib, random, sys
folder, path = pathlib.Path(sys.argv[1]), sys.argv[2]
rng, words = random.Random(7), []
while len(words) < 999:
    word = "".join(rng.choice("bdfgklmnprstvz") + rng.choice("aeiou") for _ in range(rng.randint(3, 4)))
    if word not in words:
        words.append(word)
words.append("zimbola")
store = "".join(f"{word}\r\n/no/such/{word}.exe\r\n" for word in words[:-1])
(folder / "keywords.txt").write_text(store + f"zimbola\r\n{path}\r\n", newline="")
rule = """<RULE NAME="{0}" TOPLEVEL="ACTIVE">
      <O>
          <L>
               <P>Please</P>
               <P>Computer</P>
               <P>Will you</P>
          </L>
      </O>
      <O>
          <L>
               <P>run</P>
               <P>execute</P>
               <P>load</P>
          </L>
      </O>
      <P>{0}</P>
      <O>please</O>
</RULE>
""".replace("\n", "\r\n")
grammar = (folder / "keywords.xml").read_text()
head = grammar[:grammar.rindex("</GRAMMAR>")].replace("\n", "\r\n")
rules = "".join(rule.format(word) for word in words)
(folder / "keywords.xml").write_text(head + rules + "</GRAMMAR>\r\n", newline="")
PYTHON
"$scratch/program/corvane" > "$scratch/program/output.txt" 2>&1 &
program=$!
expect "the program listens" becomes_ready
expect "the last keyword's program has started" say_until marks_are 1 -- run zimbola please
echo "It started $((($(< "$mark") - said) / 1000000)) ms after the words' end."

expect "the window is there" say_until window_is_there "$add_programs" -- add program
