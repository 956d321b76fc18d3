#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""The program's pictures: all sizes are there, and each is what its drawing shows."""
import pathlib
import shutil
import struct
import subprocess
import tempfile
import unittest

PROJECT = pathlib.Path(__file__).resolve().parents[2]
PICTURES = PROJECT / "data" / "pictures"

SIZES = {
    "corvane": {16, 24, 32, 48, 64, 128, 256, 512},
    **dict.fromkeys(["cd_closed", "cd_open"], {16, 32, 64}),
    **dict.fromkeys(["connection_modem", "connection_lan", "connection_busy", "connection_none"], {16, 32, 64}),
    **dict.fromkeys(["add", "delete", "clear"], {24, 48}),
}
FILES = {f"{name}-{size}.png": size for name, sizes in SIZES.items() for size in sizes} | {"product.png": 500}


def width_and_height(picture):
    header = picture.read_bytes()[:24]
    assert header[:8] == b"\x89PNG\r\n\x1a\n", picture
    return struct.unpack(">II", header[16:24])


def pixels_that_differ(one, other):
    """More than rounding does."""
    run = subprocess.run(["compare", "-metric", "AE", "-fuzz", "4%", one, other, "null:"],
                         capture_output=True, text=True, check=False)
    return float(run.stderr.split()[0])


class Pictures(unittest.TestCase):
    def test_every_picture_is_there_in_all_its_sizes_and_no_other(self):
        self.assertEqual({file.name for file in PICTURES.glob("*.png")}, set(FILES))
        for name, size in FILES.items():
            self.assertEqual(width_and_height(PICTURES / name), (size, size), name)

    def test_all_but_the_largest_icon_are_laid_beside_the_program(self):
        laid_out = (PROJECT / "data" / "CMakeLists.txt").read_text()
        for name in FILES:
            self.assertEqual(f"pictures/{name}" in laid_out, name != "corvane-512.png", name)

    def test_drawings_need_nothing_from_elsewhere(self):
        for drawing in PICTURES.glob("*.svg"):
            text = drawing.read_text().replace('xmlns="http://www.w3.org/2000/svg"', "")
            for outside in ("http", "href", "<image", "@import", "<text"):
                self.assertNotIn(outside, text, drawing.name)

    @unittest.skipUnless(shutil.which("rsvg-convert") and shutil.which("compare"), "nothing here draws SVG")
    def test_every_picture_shows_its_drawing(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([PICTURES / "render", folder], stdout=subprocess.DEVNULL, check=True)
            self.assertEqual({file.name for file in pathlib.Path(folder).iterdir()}, set(FILES))
            for name in FILES:
                self.assertEqual(pixels_that_differ(PICTURES / name, pathlib.Path(folder, name)), 0, name)


if __name__ == "__main__":
    unittest.main()
