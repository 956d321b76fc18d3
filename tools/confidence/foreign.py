# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""Real people who say something else: whole recordings and pieces cut out of them."""

import sound

SHORTEST, LONGEST = 0.7, 2.5  # seconds of a piece


def pieces(samples, name):
    """Cut anywhere, words too, one after the other."""
    numbers = sound.generator("pieces " + name)
    begin = 0
    while True:
        end = begin + int(numbers.uniform(SHORTEST, LONGEST) * sound.RATE)
        if end > len(samples):
            return
        yield samples[begin:end]
        begin = end


def of_folder(folder, pattern, share, seed):
    """(name, samples) of some of the files, each whole if it is short, else in pieces."""
    for path in sorted(folder.rglob(pattern)):
        name = str(path.relative_to(folder))
        if sound.seed_of(seed + name) % 1000 >= share * 1000 or _could_be_command(path.stem):
            continue
        samples = sound.read(path)
        if len(samples) < 0.2 * sound.RATE or max(abs(samples)) < 200:
            continue
        if len(samples) <= LONGEST * sound.RATE:
            yield name, samples
            continue
        for number, piece in enumerate(pieces(samples, name)):
            yield f"{name}-{number}", piece


def _could_be_command(stem):
    """Recordings of words that are commands, in whatever language."""
    return stem.lower() in {"no", "time", "vm-no", "calendar", "notepad", "mute", "conf-muted",
                            "close", "restart", "date", "today", "cancel", "stop"}
