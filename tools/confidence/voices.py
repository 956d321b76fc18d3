# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""Synthetic speakers. Each voice says all its texts at once, since some take long to load."""

import subprocess
import tempfile
from pathlib import Path

import sound

# Voice: (program, its name there, speaker). Two voices of one speaker stand on one side of the split.
VOICES = {
    "slt": ("flite", "slt", "slt"),
    "awb": ("flite", "awb", "awb"),
    "kal16": ("flite", "kal16", "kal"),
    "rms": ("flite", "rms", "rms"),
    "kal_diphone": ("festival", "kal_diphone", "kal"),
    "ked_diphone": ("festival", "ked_diphone", "ked"),
    "slt_hts": ("festival", "cmu_us_slt_arctic_hts", "slt"),
    "espeak": ("espeak-ng", "en-us", "espeak"),
    "espeak_f3": ("espeak-ng", "en-us+f3", "espeak"),
}
TEST_SPEAKERS = {"rms", "ked"}


def split_of(voice):
    return "test" if VOICES[voice][2] in TEST_SPEAKERS else "tuning"


def say(voice, texts, folder):
    """Says each text; the files, as the synthesiser made them, in the texts' order."""
    folder.mkdir(parents=True, exist_ok=True)
    files = [folder / f"{sound.seed_of(text):012x}.wav" for text in texts]
    todo = [(text, file) for text, file in zip(texts, files) if not file.exists()]
    program, name, _ = VOICES[voice]
    if program == "festival":
        _festival(name, todo)
    for text, file in todo if program != "festival" else []:
        command = (["flite", "-voice", name, "-t", text, "-o", file] if program == "flite"
                   else ["espeak-ng", "-v", name, "-w", file, text])
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return files


def _festival(name, todo):
    if not todo:
        return
    lines = [f"(voice_{name})"]
    lines += [f'(utt.save.wave (utt.synth (Utterance Text "{text}")) "{file}" \'riff)'
              for text, file in todo]
    with tempfile.NamedTemporaryFile("w", suffix=".scm") as script:
        script.write("\n".join(lines))
        script.flush()
        subprocess.run(["festival", "-b", Path(script.name)], check=True,
                       stdout=subprocess.DEVNULL)
