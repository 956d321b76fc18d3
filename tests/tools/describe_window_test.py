#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""What describe-window counts as a fault."""

import importlib.machinery
import importlib.util
import sys
import types
import unittest
from pathlib import Path

sys.dont_write_bytecode = True


def load(path):
    sys.path.insert(0, str(path.parent))
    loader = importlib.machinery.SourceFileLoader("describe_window", str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


tool = load(Path(__file__).resolve().parents[2] / "tools" / "describe-window")


def part(role, name, states=(), actions=(), value=None, description=""):
    made = tool.Part.__new__(tool.Part)
    made.role, made.name, made.description = role, name, description
    made.states, made.actions, made.value = list(states), list(actions), value
    made.showing = True
    return made


def value(current):
    return types.SimpleNamespace(currentValue=current, minimumValue=0, maximumValue=100)


READ = part("push button", "Read", ["focusable"], ["Press", "SetFocus"])


class DescribeWindow(unittest.TestCase):
    def faults(self, *parts):
        return list(tool.faults([READ, *parts]))

    def test_what_is_named_and_told_apart_has_no_fault(self):
        level = part("progress bar", "Level", ["read-only"], ["Increase", "Decrease"], value(5))
        self.assertEqual(self.faults(level, part("label", ""), part("separator", "")), [])

    def test_nameless_part_that_can_be_acted_on_is_a_fault(self):
        self.assertEqual(len(self.faults(part("check box", "", ["focusable"], ["Toggle"]))), 1)

    def test_role_that_says_nothing_is_a_fault_where_it_can_be_acted_on(self):
        self.assertEqual(len(self.faults(part("filler", "Dial", ["focusable"]))), 1)
        self.assertEqual(self.faults(part("filler", "Dial")), [])

    def test_two_of_one_name_and_role_are_a_fault(self):
        self.assertEqual(self.faults(READ), ['there are 2 of push button "Read"'])

    def test_rows_may_be_alike(self):
        row = part("table cell", "notepad", ["focusable"], ["Select"])
        self.assertEqual(self.faults(row, row), [])

    def test_bar_without_a_name_or_beyond_its_range_is_a_fault(self):
        self.assertEqual(len(self.faults(part("progress bar", "", value=value(5)))), 1)
        self.assertEqual(len(self.faults(part("progress bar", "Level", value=value(101)))), 1)

    def test_picture_that_nobody_describes_is_a_fault(self):
        self.assertEqual(len(self.faults(part("image", ""))), 1)

    def test_button_that_cannot_be_pressed_is_a_fault_unless_it_is_disabled(self):
        self.assertEqual(len(self.faults(part("push button", "Add", ["focusable"]))), 1)
        self.assertEqual(self.faults(part("push button", "Add", ["focusable", "disabled"])), [])

    def test_window_in_which_nothing_can_be_done_is_a_fault(self):
        self.assertEqual(list(tool.faults([part("label", "Text")])),
                         ["nothing in it can be acted on"])


if __name__ == "__main__":
    unittest.main()
