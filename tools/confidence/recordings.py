# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""What collect has written: recognitions with the features of their confidence."""

from collections import Counter
from dataclasses import dataclass

import numpy as np

import sayings
import voices


@dataclass
class Recognition:
    measure: str
    split: str
    voice: str
    rule: str  # as it was said; empty if it was no command
    text: str
    file: str
    heard_rule: str
    heard: str
    score: float  # as the engine gave it
    features: dict
    kind: str = ""

    @property
    def right(self):
        return self.rule != "" and (self.rule, self.text) == (self.heard_rule, self.heard)

    @property
    def mistaken(self):
        """Something else would be done than was said: a word like "the" more or less is no mistake."""
        if self.rule == "" or self.rule != self.heard_rule:
            return True
        return self.rule == sayings.LETTERS_RULE and self.text.split()[-1] != self.heard.split()[-1]

    @property
    def speaker(self):
        voice = self.voice.split(",")[0]
        return voices.VOICES[voice][2] if voice in voices.VOICES else voice


def read(path):
    rows = []
    for line in open(path):
        *fields, score, features = line.rstrip("\n").split("\t")
        pairs = (pair.split("=") for pair in features.split())
        rows.append(Recognition(*fields, float(score), {n: float(v) for n, v in pairs}))
    in_file = Counter(row.file for row in rows)
    for row in rows:
        if not row.rule:
            row.kind = row.measure
        elif row.right:
            row.kind = "right " + row.measure
        elif in_file[row.file] > 1:
            row.kind = "beside"  # more was heard than said: a noise, or half of the command
        else:
            row.kind = "mistaken" if row.mistaken else "other words"
    # What was heard without the phones is scored by other weights.
    return [row for row in rows if "rule_margin" in row.features]


def folds(rows, count):
    """Parts of which no two share a speaker, about as large."""
    size = Counter(row.speaker for row in rows)
    load = [0] * count
    part = {}
    for speaker, rows_of in size.most_common():
        part[speaker] = load.index(min(load))
        load[part[speaker]] += rows_of
    return np.array([part[row.speaker] for row in rows])
