#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""corvane-say, as people call it: what it writes and prints of texts. usage: corvane_say_test.py PROGRAM"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest
import wave

PROGRAM = ""
FIELDS = ("event", "at", "position", "length", "what")


def say(*arguments):
    # No sound server: what is spoken takes its time unheard.
    run = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, check=False, timeout=60,
                         env={**os.environ, "PULSE_SERVER": "unix:/nowhere/at/all"})
    return run.returncode, [dict(zip(FIELDS, line.split("\t"), strict=True))
                            for line in run.stdout.splitlines()], run.stderr


def told(lines, event):
    return [(int(line["position"]), int(line["length"]), line["what"]) for line in lines if line["event"] == event]


class CorvaneSay(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.wav = pathlib.Path(folder.name) / "said.wav"

    def write(self, text):
        status, lines, error = say("--wav", self.wav, text)
        self.assertEqual((status, error), (0, ""))
        with wave.open(str(self.wav)) as sound:
            return lines, 1000 * sound.getnframes() / sound.getframerate()

    def test_without_a_text_or_with_unknown_options_it_says_how_it_is_called(self):
        for arguments in [(), ("--loud",), ("--wav", "out.wav"), ("one", "two")]:
            status, lines, error = say(*arguments)
            self.assertEqual((status, lines), (2, []), arguments)
            self.assertIn("usage: corvane-say [--wav OUT.wav] TEXT", error)

    def test_words_are_those_of_the_text_with_its_markup(self):
        lines, _ = self.write("The <emph>été</emph> is 5 &lt; 7.")
        self.assertEqual(told(lines, "word"), [(0, 3, "The"), (10, 3, "été"), (21, 2, "is"), (24, 1, "5"),
                                               (26, 4, "&lt;"), (31, 1, "7")])

    def test_times_rise_and_the_end_is_that_of_the_sound(self):
        lines, duration = self.write('One <silence msec="500"/> two <bookmark mark="here"/>three.')
        times = [int(line["at"]) for line in lines]
        self.assertEqual(times, sorted(times))
        self.assertEqual(lines[-1]["event"], "end")
        self.assertAlmostEqual(times[-1], duration, delta=1)
        self.assertEqual(told(lines, "bookmark"), [(0, 0, "here")])
        one, two = [int(line["at"]) for line in lines if line["event"] == "word"][:2]
        self.assertGreater(two - one, 500)

    def test_levels_are_percents_and_fall_to_nothing(self):
        lines, _ = self.write("How loud is this?")
        levels = [int(line["what"]) for line in lines if line["event"] == "level"]
        self.assertGreater(max(levels), 40)
        self.assertLessEqual(max(levels), 100)
        self.assertEqual(levels[-1], 0)

    def test_nothing_is_an_empty_sound(self):
        lines, duration = self.write("")
        self.assertEqual([line["event"] for line in lines], ["end"])
        self.assertEqual(duration, 0)

    def test_file_that_cannot_be_written_is_named(self):
        status, _, error = say("--wav", self.wav.parent / "nowhere" / "said.wav", "hello")
        self.assertEqual(status, 1)
        self.assertIn("nowhere/said.wav", error)

    def test_spoken_words_are_told_when_it_is_their_time(self):
        written, duration = self.write("one two three")
        began = time.monotonic()
        status, spoken, error = say("one two three")
        self.assertEqual((status, error), (0, ""))
        self.assertGreaterEqual(1000 * (time.monotonic() - began), duration - 50)
        self.assertEqual(told(spoken, "word"), told(written, "word"))
        self.assertEqual(spoken[-1]["event"], "end")


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
