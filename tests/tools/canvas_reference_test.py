#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""Drawings of the canvas against reference drawings of another implementation, by kind.

usage: canvas_reference_test.py CORVANE_CANVAS

The figure is the share of pixels that differ at all, of those that the reference has set.
"""
import collections
import pathlib
import subprocess
import sys
import tempfile

REFERENCE = pathlib.Path(__file__).resolve().parents[1] / "golden" / "canvas"
BOUNDS = {  # percent
    "line1": 0, "poly": 0, "rect1": 0, "linewide": 0,
    "ellipse1": 1, "arc1": 0.5, "rectwide": 1, "ellipsewide": 4, "gauge": 3, "arcwide": 12,
}


def pixels(path):
    raw = subprocess.check_output(["convert", path, "-alpha", "off", "-depth", "8", "rgb:-"])
    return [raw[i:i + 3] for i in range(0, len(raw), 3)]


def background(operations):
    colour = next(line.split()[1] for line in operations.read_text().splitlines() if line.startswith("Cls"))
    return int(colour, 16).to_bytes(3, "little")


def main(tool):
    lists = sorted(REFERENCE.glob("*.ops"))
    differing, drawn = collections.Counter(), collections.Counter()
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([tool, "-o", folder, *lists], check=True)
        for operations in lists:
            kind = operations.stem.split("_")[0]
            wanted = pixels(operations.with_suffix(".png"))
            got = pixels(pathlib.Path(folder, operations.stem + ".png"))
            assert len(wanted) == len(got), operations.stem
            empty = background(operations)
            differing[kind] += sum(a != b for a, b in zip(wanted, got))
            drawn[kind] += sum(pixel != empty for pixel in wanted)
    failed = set(BOUNDS) != set(drawn)
    for kind, bound in BOUNDS.items():
        share = 100 * differing[kind] / max(1, drawn[kind])
        failed |= share > bound
        print(f"{kind:12s} {share:6.2f} % differ, at most {bound} may")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
