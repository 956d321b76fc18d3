#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""A program of another toolkit. usage: gtk_window.py TITLE [QUESTION]

With a QUESTION it does not close when it is asked to, but puts that into its title."""

import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gtk  # noqa: E402


def ask(window, _event, question):
    window.set_title(question)
    return True


window = Gtk.Window(title=sys.argv[1], default_width=300, default_height=200)
if len(sys.argv) > 2:
    window.connect("delete-event", ask, sys.argv[2])
window.connect("destroy", Gtk.main_quit)
window.show_all()
Gtk.main()
