# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""Windows of running programs as a screen reader finds them, for the tools beside this file."""

import sys

import gi

gi.require_version("Atspi", "2.0")
import pyatspi  # noqa: E402  (needs the version chosen first)
from gi.repository import GLib  # noqa: E402

# What is raised by those that do not answer any more: a program may end while it is read.
GONE = (GLib.Error, LookupError, NotImplementedError)


def children(accessible):
    """Those that still answer."""
    try:
        return [child for child in accessible if child is not None]
    except GONE:
        return []


def name_of(accessible):
    try:
        return accessible.name
    except GONE:
        return None


def find_window(title):
    for program in children(pyatspi.Registry.getDesktop(0)):
        for window in children(program):
            if name_of(window) == title:
                return window
    return None


def parts(accessible):
    """All that is in a window or control, from top to bottom."""
    for child in children(accessible):
        yield child
        yield from parts(child)


def find_control(accessible, name):
    return next((part for part in parts(accessible) if name_of(part) == name), None)


def require_window(title):
    """Ends the tool with status 1 when there is none."""
    window = find_window(title)
    if window is None:
        sys.exit(f'{tool_name()}: there is no window "{title}"')
    return window


def require_control(title, name):
    control = find_control(require_window(title), name)
    if control is None:
        sys.exit(f'{tool_name()}: the window "{title}" has no control "{name}"')
    return control


def require_arguments(doc, count):
    """The arguments; ends the tool with its description and status 2 when there are others."""
    if len(sys.argv) != count + 1:
        print(doc.strip(), file=sys.stderr)
        sys.exit(2)
    return sys.argv[1:]


def tool_name():
    return sys.argv[0].rpartition("/")[2]
