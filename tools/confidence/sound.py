# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""Sound as arrays of float samples, 16 kHz, one channel, full scale 32768: files, rooms, noise."""

import hashlib
import random
import subprocess
import wave

import numpy as np

RATE = 16000


def generator(name):
    """Random numbers that depend on the name alone, so that a file is made again as it was."""
    return np.random.default_rng(seed_of(name))


def seed_of(name):
    return int.from_bytes(hashlib.sha1(name.encode()).digest()[:6], "big")


def chosen(name, choices):
    return random.Random(seed_of(name)).choice(choices)


def read(path):
    """Any sound file."""
    if str(path).endswith(".wav"):
        with wave.open(str(path)) as file:
            if (file.getframerate(), file.getnchannels(), file.getsampwidth()) == (RATE, 1, 2):
                return np.frombuffer(file.readframes(file.getnframes()), "<i2").astype(float)
    raw = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-i", str(path), "-f", "s16le",
                          "-ac", "1", "-ar", str(RATE), "-"], stdout=subprocess.PIPE, check=True)
    return np.frombuffer(raw.stdout, "<i2").astype(float)


def write(path, samples):
    path.parent.mkdir(parents=True, exist_ok=True)
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1), file.setsampwidth(2), file.setframerate(RATE)
        file.writeframes(np.clip(np.round(samples), -32768, 32767).astype("<i2").tobytes())


def sox(samples, *effect):
    """The samples through an effect of sox."""
    form = ["-t", "raw", "-r", str(RATE), "-e", "signed", "-b", "16", "-c", "1"]
    done = subprocess.run(["sox", "-V1", "-D", *form, "-", *form, "-", "gain", "-1", *effect],
                          input=np.clip(samples, -32768, 32767).astype("<i2").tobytes(),
                          stdout=subprocess.PIPE, check=True)
    return np.frombuffer(done.stdout, "<i2").astype(float)


def surrounded(samples, name, still=0.5):
    """As generated, between exact zeros, or in a quiet room: speech comes in all three ways."""
    way = chosen("surroundings " + name, ["bare", "zeros", "room", "room"])
    if way == "bare":
        return samples
    space = np.zeros(int(still * RATE))
    whole = np.concatenate([space, samples, space])
    if way == "zeros":
        return whole
    numbers = generator("room " + name)
    return whole + numbers.normal(0, numbers.uniform(3, 30), len(whole))


def in_room(samples, name):
    """As a microphone some way off hears it: reverberation of 0.25 to 0.6 s."""
    numbers = generator("reverberation " + name)
    seconds = numbers.uniform(0.25, 0.6)
    time = np.arange(int(seconds * RATE)) / RATE
    tail = numbers.normal(0, 1, len(time)) * 10 ** (-3 * time / seconds)
    tail[:int(0.003 * RATE)] = 0
    tail *= 10 ** (-numbers.uniform(2, 8) / 20) / np.sqrt(np.sum(tail ** 2))
    tail[0] = 1
    size = len(samples) + len(tail) - 1
    wet = np.fft.irfft(np.fft.rfft(samples, size) * np.fft.rfft(tail, size), size)
    return wet * min(1.0, 26000 / max(1, np.max(np.abs(wet))))


def with_noise(samples, noise, ratio_db, name):
    """ratio_db is of the loudest stretches of 2048 samples; where the noise is cut from depends on
    the name."""
    start = seed_of(name) % (len(noise) - len(samples))
    piece = noise[start:start + len(samples)]
    scale = np.sqrt(_loudest(samples) / (_loudest(piece) * 10 ** (ratio_db / 10)))
    mixed = samples + scale * piece
    return mixed * 16383 / max(1.0, np.max(np.abs(mixed)))


def _loudest(samples):
    return max((np.sum(samples[i:i + 2048] ** 2) for i in range(0, max(1, len(samples) - 2047), 2048)),
               default=1.0)
