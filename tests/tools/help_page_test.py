#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""The help page: all commands as the grammars have them, nothing from elsewhere, and open to everybody."""
import html.parser
import pathlib
import re
import subprocess
import sys
import unittest

PROJECT = pathlib.Path(__file__).resolve().parents[2]
PAGE = (PROJECT / "data" / "help.html").read_text(encoding="utf-8")

# What stands on what: names of the page's colours.
TEXT_COLOURS = ("text", "soft", "accent")
GROUNDS = ("page", "card", "shade", "tint")


class Elements(html.parser.HTMLParser):
    """All elements in order, as (name, attributes)."""

    def __init__(self):
        super().__init__()
        self.all = []
        self.open = []
        self.feed(PAGE)
        self.close()

    def handle_starttag(self, tag, attrs):
        self.all.append((tag, dict(attrs)))
        if tag not in ("meta", "link", "img"):
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.all.append((tag, dict(attrs)))

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, f"{tag} at line {self.getpos()[0]}"

    def of(self, *tags):
        return [attributes for tag, attributes in self.all if tag in tags]


def colours(block):
    return dict(re.findall(r"--(\w+): (#[0-9a-f]{6})", block))


def luminance(colour):
    channels = (int(colour[i:i + 2], 16) / 255 for i in (1, 3, 5))
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in channels]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    lighter, darker = sorted((luminance(one), luminance(other)), reverse=True)
    return (lighter + 0.05) / (darker + 0.05)


class HelpPage(unittest.TestCase):
    def setUp(self):
        self.elements = Elements()

    def test_every_command_stands_there_as_the_grammars_have_it(self):
        run = subprocess.run([sys.executable, PROJECT / "tools" / "spoken-forms", "--check"], capture_output=True,
                             text=True, check=False)
        self.assertEqual(run.returncode, 0, run.stdout)

    def test_every_element_is_closed(self):
        self.assertEqual(self.elements.open, [])

    def test_it_needs_nothing_but_the_pictures_beside_it(self):
        laid_out = (PROJECT / "data" / "CMakeLists.txt").read_text()
        for tag, attributes in self.elements.all:
            for name in ("src", "href", "srcset", "data", "action", "poster"):
                target = attributes.get(name, "#")
                if not target.startswith("#"):
                    self.assertIn(f"    {target}\n", laid_out.replace(")", "\n"), tag)
        for outside in ("http:", "https:", "//", "@import", "url(", "<script", "<iframe", "<object"):
            self.assertNotIn(outside, PAGE)
        self.assertFalse([name for _, attributes in self.elements.all for name in attributes if name[:2] == "on"])

    def test_every_link_leads_somewhere(self):
        places = [attributes["id"] for _, attributes in self.elements.all if "id" in attributes]
        self.assertEqual(len(places), len(set(places)))
        for link in self.elements.of("a"):
            self.assertIn(link["href"][1:], places)

    def test_headings_form_an_outline(self):
        levels = [int(tag[1]) for tag, _ in self.elements.all if re.fullmatch("h[1-6]", tag)]
        self.assertEqual(levels.count(1), 1)
        self.assertEqual(levels[0], 1)
        for above, below in zip(levels, levels[1:]):
            self.assertLessEqual(below, above + 1)

    def test_a_screen_reader_finds_its_parts(self):
        self.assertEqual(self.elements.of("html")[0]["lang"], "en")
        for landmark in ("header", "nav", "main", "footer", "title"):
            self.assertEqual(len(self.elements.of(landmark)), 1, landmark)
        self.assertEqual(self.elements.of("a")[0]["href"], "#" + self.elements.of("main")[0]["id"])
        places = {attributes.get("id") for _, attributes in self.elements.all}
        for part in self.elements.of("nav", "section"):
            self.assertIn(part["aria-labelledby"], places)
        for picture in self.elements.of("img"):
            self.assertIn("alt", picture)

    def test_it_can_be_read_on_light_and_on_dark_ground_and_on_paper(self):
        blocks = re.findall(r":root \{([^}]*)\}", PAGE)
        self.assertEqual(len(blocks), 3)
        for block in map(colours, blocks):
            for text in TEXT_COLOURS:
                for ground in GROUNDS:
                    self.assertGreaterEqual(contrast(block[text], block[ground]), 4.5, (text, ground))


if __name__ == "__main__":
    unittest.main()
