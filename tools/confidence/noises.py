# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""Sounds that are no speech, or too many people's at once. Each is about 20 seconds."""

import numpy as np

import sound

SECONDS = 20
SAMPLES = SECONDS * sound.RATE


def _coloured(numbers, exponent):
    spectrum = np.fft.rfft(numbers.normal(0, 1, SAMPLES))
    frequency = np.maximum(np.arange(len(spectrum)) * sound.RATE / SAMPLES, 30.0)
    shaped = np.fft.irfft(spectrum * frequency ** -exponent, SAMPLES)
    return shaped / np.std(shaped)


def _placed(numbers, events, make, shortest_gap=0.3, longest_gap=1.5):
    """Events one after the other with stillness between, over the noise of a quiet room."""
    out = numbers.normal(0, numbers.uniform(2, 25), SAMPLES)
    at = 0
    while events:
        at += int(numbers.uniform(shortest_gap, longest_gap) * sound.RATE)
        event = make()
        if at + len(event) >= SAMPLES:
            break
        out[at:at + len(event)] += event
        at += len(event)
    return out


def _enveloped(numbers, seconds, attack, exponent):
    samples = int(seconds * sound.RATE)
    time = np.arange(samples) / sound.RATE
    envelope = np.minimum(1, time / attack) * np.minimum(1, (seconds - time) / (seconds * 0.4))
    return _coloured(numbers, exponent)[:samples] * envelope


def bursts(numbers):
    exponent = numbers.choice([0.0, 0.5, 1.0])
    return _placed(numbers, True, lambda: numbers.uniform(500, 5000) * _enveloped(
        numbers, numbers.uniform(0.1, 1.2), 0.02, exponent))


def breaths(numbers):
    def breath():
        raw = _enveloped(numbers, numbers.uniform(0.4, 1.5), 0.2, 0.3)
        return numbers.uniform(200, 1500) * sound.sox(raw * 3000, "bandpass", "1200", "1.5q") / 1500
    return _placed(numbers, True, breath)


def knocks(numbers):
    def knock():
        time = np.arange(int(0.15 * sound.RATE)) / sound.RATE
        pitch = numbers.uniform(80, 900)
        hit = np.exp(-time * numbers.uniform(20, 80)) * (
            np.sin(2 * np.pi * pitch * time) + numbers.normal(0, 0.4, len(time)))
        return numbers.uniform(2000, 16000) * hit
    return _placed(numbers, True, knock, 0.08, 0.7)


def keys(numbers):
    def key():
        time = np.arange(int(0.03 * sound.RATE)) / sound.RATE
        return numbers.uniform(500, 4000) * numbers.normal(0, 1, len(time)) * np.exp(-time * 200)
    return _placed(numbers, True, key, 0.03, 0.3)


def hum(numbers):
    time = np.arange(SAMPLES) / sound.RATE
    base = numbers.choice([50.0, 60.0, 100.0, 120.0])
    tone = sum(numbers.uniform(0, 1) / n * np.sin(2 * np.pi * base * n * time) for n in range(1, 12))
    swell = 1 + 0.5 * np.sin(2 * np.pi * numbers.uniform(0.1, 0.6) * time)
    return numbers.uniform(300, 4000) * tone * swell + numbers.normal(0, 10, SAMPLES)


def steady(numbers):
    level = numbers.uniform(300, 6000) * np.repeat(numbers.uniform(0.2, 1, 10), SAMPLES // 10)
    return _coloured(numbers, numbers.choice([0.0, 0.5, 1.0])) * level


def notes(numbers):
    """A melody with overtones, two voices."""
    def voice():
        out = np.zeros(SAMPLES)
        at = 0
        while at < SAMPLES:
            length = int(numbers.choice([0.15, 0.25, 0.4, 0.8]) * sound.RATE)
            pitch = 110 * 2 ** (numbers.integers(0, 36) / 12)
            time = np.arange(min(length, SAMPLES - at)) / sound.RATE
            note = sum(np.sin(2 * np.pi * pitch * n * time) / n ** 1.3 for n in range(1, 10))
            out[at:at + len(time)] = note * np.exp(-time * numbers.uniform(1, 6))
            at += length + int(numbers.choice([0, 0, 0.3]) * sound.RATE)
        return out
    return numbers.uniform(800, 4000) * (voice() + voice()) + numbers.normal(0, 10, SAMPLES)


def beeps(numbers):
    def beep():
        time = np.arange(int(numbers.uniform(0.1, 0.8) * sound.RATE)) / sound.RATE
        pitch = numbers.uniform(300, 3000) * 2 ** (numbers.uniform(-1, 1) * time)
        return numbers.uniform(500, 8000) * np.sin(2 * np.pi * np.cumsum(pitch) / sound.RATE)
    return _placed(numbers, True, beep)


def zeros(_numbers):
    return np.zeros(SAMPLES)


def clipping(numbers):
    loud = _coloured(numbers, 0.7) * np.repeat(numbers.choice([0.02, 1, 1], 20), SAMPLES // 20)
    return np.clip(loud * 60000, -32768, 32767)


KINDS = {kind.__name__: kind for kind in
         (bursts, breaths, knocks, keys, hum, steady, notes, beeps, zeros, clipping)}


def babble(numbers, people):
    """Many at once. people: recordings."""
    out = np.zeros(SAMPLES)
    for _ in range(int(numbers.integers(4, 9))):
        at = 0
        while at < SAMPLES:
            person = people[numbers.integers(len(people))]
            piece = person[:SAMPLES - at]
            out[at:at + len(piece)] += piece * 3000 / max(1.0, np.std(person) * 3)
            at += len(piece)
    return out * 9000 / np.max(np.abs(out))
