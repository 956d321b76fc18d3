#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""corvane-hear, as people call it: what it prints of sound files. usage: corvane_hear_test.py PROGRAM"""
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import wave

PROGRAM = ""
FIELDS = ("file", "event", "rule", "confidence", "score", "start", "end", "latency", "text")


def hear(*arguments):
    run = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, check=False)
    return run.returncode, [dict(zip(FIELDS, line.split("\t"), strict=True))
                            for line in run.stdout.splitlines()], run.stderr


def rule(name, phrase):
    return f'<RULE NAME="{name}" TOPLEVEL="ACTIVE"><P>{phrase}</P></RULE>'


def samples_of(path):
    with wave.open(str(path)) as sound:
        count = sound.getnframes()
        return struct.unpack(f"<{count}h", sound.readframes(count))


def write(path, samples, rate=16000, channels=1, width=2):
    """The samples, each in all channels, as integers of so many bytes."""
    with wave.open(str(path), "wb") as sound:
        sound.setparams((channels, width, rate, 0, "NONE", ""))
        shift = 8 * width - 16
        sound.writeframes(b"".join(
            (int(s) << shift if shift >= 0 else (int(s) >> 8) + 128).to_bytes(width, "little", signed=width > 1)
            for s in samples for _ in range(channels)))


def stretched(samples, rate):
    """The samples at another rate, by straight lines between them."""
    result = []
    for i in range(int((len(samples) - 1) * rate / 16000)):
        place = i * 16000 / rate
        first = int(place)
        result.append(samples[first] + (place - first) * (samples[first + 1] - samples[first]))
    return result


class CorvaneHear(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def grammar(self, name, *rules):
        path = self.folder / name
        path.write_text('<GRAMMAR LANGID="409">' + "".join(rules) + "</GRAMMAR>", encoding="utf-8")
        return path

    def say(self, text, name="said.wav"):
        path = self.folder / name
        subprocess.run(["flite", "-voice", "rms", "-t", text, "-o", path], check=True)
        return path

    def recognitions(self, *arguments):
        status, lines, error = hear(*arguments)
        self.assertEqual(status, 0, error)
        return [(line["rule"], line["text"]) for line in lines if line["event"] == "recognition"]

    def test_without_files_or_with_unknown_options_it_says_how_it_is_called(self):
        for arguments in [(), ("--dictation",), ("--loud", "a.wav"), ("a.wav", "--grammar")]:
            status, lines, error = hear(*arguments)
            self.assertEqual((status, lines), (2, []))
            self.assertIn("usage: corvane-hear", error)

    def test_file_that_cannot_be_read_is_named_and_the_others_are_heard(self):
        commands = self.grammar("commands.xml", rule("the time", "what time is it"))
        rubbish = self.folder / "rubbish.wav"
        rubbish.write_bytes(b"no sound")
        said = self.say("what time is it")
        status, lines, error = hear("--grammar", commands, rubbish, self.folder / "nowhere.wav", said)
        self.assertEqual(status, 1)
        self.assertIn(f"{rubbish}: Not a usable WAV file: it has no RIFF WAVE head", error)
        self.assertIn("nowhere.wav: There is no sound file", error)
        self.assertEqual(lines[-1]["text"], "what time is it")

    def test_each_grammar_is_heard(self):
        clock = self.grammar("clock.xml", rule("the time", "what time is it"))
        window = self.grammar("window.xml", rule("maximize", "maximize window"))
        self.assertEqual(self.recognitions("--grammar", clock, "--grammar", window,
                                           self.say("what time is it", "a.wav"), self.say("maximize window", "b.wav")),
                         [("the time", "what time is it"), ("maximize", "maximize window")])

    def test_speech_that_matches_nothing_is_none(self):
        commands = self.grammar("commands.xml", rule("long", "please tell me what time it is in this very moment"))
        status, lines, _ = hear("--grammar", commands, self.say("yes"))
        self.assertEqual(status, 0)
        last = lines[-1]
        self.assertEqual((last["event"], last["rule"], last["confidence"], last["text"]), ("none", "", "-1", ""))
        self.assertGreater(int(last["end"]), int(last["start"]))

    def test_a_hopeless_match_is_none_and_told_to_who_asks_for_features(self):
        commands = self.grammar("commands.xml", rule("the time", "what time is it"))
        talk = self.say("my sister bought three pounds of apples on the market")
        _, lines, _ = hear("--final", "--grammar", commands, talk)
        self.assertEqual([(line["event"], line["rule"], line["text"]) for line in lines], [("none", "", "")])
        _, lines, _ = hear("--final", "--features", "--grammar", commands, talk)
        self.assertEqual([(line["event"], line["rule"]) for line in lines], [("none", "the time"), ("features", "")])

    def test_dictation_is_text_and_sure_commands_are_commands(self):
        commands = self.grammar("commands.xml", rule("the time", "what time is it"))
        heard = self.recognitions("--dictation", "--grammar", commands, self.say("what time is it", "a.wav"),
                                  self.say("thank you very much for your help", "b.wav"))
        self.assertEqual(heard[0], ("the time", "what time is it"))
        self.assertEqual(heard[1][0], "")
        self.assertIn("very much for your help", heard[1][1])

    def test_any_rate_width_and_number_of_channels_is_heard(self):
        commands = self.grammar("commands.xml", rule("the time", "what time is it"),
                                rule("maximize", "maximize window"), rule("calendar", "show me the calendar"))
        samples = samples_of(self.say("what time is it"))
        files = []
        for rate, channels, width in [(8000, 1, 2), (11025, 1, 2), (22050, 2, 2), (44100, 2, 3), (48000, 1, 4),
                                      (16000, 1, 1)]:
            files.append(self.folder / f"{rate}.{channels}.{width}.wav")
            write(files[-1], stretched(samples, rate), rate, channels, width)
        self.assertEqual(self.recognitions("--grammar", commands, *files), [("the time", "what time is it")] * len(files))

    def test_in_real_time_the_sound_takes_its_time_and_latency_is_what_passed_since(self):
        commands = self.grammar("commands.xml", rule("the time", "what time is it"))
        said = self.say("what time is it")
        began = time.monotonic()
        status, lines, _ = hear("--realtime", "--grammar", commands, said)
        passed = time.monotonic() - began
        self.assertEqual(status, 0)
        self.assertGreaterEqual(passed, len(samples_of(said)) / 16000)
        self.assertEqual(lines[-1]["event"], "recognition")
        self.assertGreater(float(lines[-1]["latency"]), 100)
        self.assertLess(float(lines[-1]["latency"]), 1000 * passed)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    if shutil.which("flite") is None:
        print("flite, which speaks in this test, is missing")
        sys.exit(77)
    unittest.main()
