# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""A window of another toolkit that is typed into: one line of text, written to a file as it stands.

usage: typing_field_gtk.py TITLE FILE
"""

import os
import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gtk  # noqa: E402

title, file = sys.argv[1:]


def write(text):
    # Whoever reads it finds one state or the other.
    with open(file + ".part", "w", encoding="utf-8", newline="") as part:
        part.write(text)
    os.rename(file + ".part", file)


window = Gtk.Window(title=title)
field = Gtk.Entry()
field.connect("changed", lambda entry: write(entry.get_text()))
window.add(field)
window.connect("destroy", Gtk.main_quit)
window.show_all()
window.present()
write("")
Gtk.main()
