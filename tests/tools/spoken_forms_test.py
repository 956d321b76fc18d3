#!/usr/bin/python3
# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""How the spoken forms of the commands come into the help page, on small projects made for each test."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "spoken-forms"

NOTEPAD = """<O><L><P>Please</P><P>Computer</P></L></O> <P>notepad</P> <O>please</O>"""
NOTEPAD_PLACE = '<span data-rule="notepad"><i>[Please / Computer]</i> notepad <i>[please]</i></span>'


class SpokenForms(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.project = pathlib.Path(folder.name)
        (self.project / "data").mkdir()
        (self.project / "src/core").mkdir(parents=True)
        self.page = self.project / "data/help.html"
        self.grammar("keywords.xml", notepad=NOTEPAD)
        self.grammar("quiet.xml")
        self.grammar("calendar.xml")
        self.dictation("")
        (self.project / "backends/linux/training").mkdir(parents=True)
        self.training("")

    def grammar(self, file, **rules):
        text = "".join(f'<RULE NAME="{name}" TOPLEVEL="ACTIVE">{body}</RULE>' for name, body in rules.items())
        (self.project / "data" / file).write_text(f'<GRAMMAR LANGID="409">{text}</GRAMMAR>')

    def dictation(self, code):
        (self.project / "src/core/dictation_mode.cpp").write_text(code)

    def training(self, code):
        (self.project / "backends/linux/training/voice_session.cpp").write_text(code)

    def run_tool(self, page, *options):
        self.page.write_text(NOTEPAD_PLACE + page)
        run = subprocess.run([sys.executable, TOOL, *options, self.project], capture_output=True, text=True,
                             check=False)
        return run.returncode, run.stdout, self.page.read_text().removeprefix(NOTEPAD_PLACE)

    def becomes(self, page, expected):
        status, told, written = self.run_tool(page)
        self.assertEqual((status, told, written), (0, "", expected))

    def is_refused(self, page, words):
        status, told, _ = self.run_tool(page)
        self.assertEqual(status, 1)
        self.assertIn(words, told)

    def test_a_place_gets_the_forms_of_its_rule(self):
        self.grammar("quiet.xml", wake="<O>please</O> <P><L><P>wake up</P><P>listen</P></L></P> <P>now</P>")
        self.becomes('<span class="forms" data-rule="wake">old</span>',
                     '<span class="forms" data-rule="wake"><i>[please]</i> (wake up / listen) now</span>')

    def test_a_choice_that_is_all_needs_no_parentheses(self):
        self.grammar("quiet.xml", stop="<P><L><P>stop</P><P>halt</P></L></P>")
        self.becomes('<span data-rule="stop"></span>', '<span data-rule="stop">stop / halt</span>')

    def test_rules_of_one_word_can_share_a_place(self):
        self.grammar("calendar.xml", May="<P>May</P>", June="<P>June</P>")
        self.becomes('<span data-rule="May|June"></span>', '<span data-rule="May|June">May / June</span>')

    def test_of_an_alphabet_only_its_ends_are_written(self):
        letters = "".join(f"<P>{letter}</P>" for letter in "abcdefg")
        self.grammar("quiet.xml", drive=f"<P>drive</P><P><L>{letters}</L></P>")
        self.becomes('<span data-rule="drive"></span>', '<span data-rule="drive">drive (a / b / … / g)</span>')

    def test_a_rule_without_a_place_is_told(self):
        self.grammar("quiet.xml", wake="<P>wake up</P>")
        self.is_refused("", 'the rule "wake" has no place')

    def test_a_place_without_a_rule_is_told(self):
        self.is_refused('<span data-rule="sleep"></span>', 'no grammar has a rule "sleep"')

    def test_a_quoted_phrase_must_be_one_that_can_be_said(self):
        self.becomes("<q>Computer notepad please</q>", "<q>Computer notepad please</q>")
        self.is_refused("<q>please run</q>", 'nobody can say "please run"')
        self.is_refused("<q>notepad notepad</q>", 'nobody can say "notepad notepad"')

    def test_a_keyword_of_the_persons_own_stands_where_the_delivered_one_does(self):
        self.becomes('<q data-keyword="editor">computer editor</q>', '<q data-keyword="editor">computer editor</q>')
        self.is_refused('<q data-keyword="editor">computer notepad</q>', 'nobody can say "computer notepad"')

    def test_phrases_of_dictation_must_be_told_and_may_be_quoted(self):
        self.dictation('if (phrase == "scratch that") return;')
        self.becomes("<q>scratch that</q>", "<q>scratch that</q>")
        self.is_refused("", 'the phrase "scratch that" of dictation is not told')

    def test_what_the_training_hears_may_be_quoted(self):
        self.training('kWishes{"skip this one",\n "close it"}; Other{"not this"}')
        self.becomes("<q>close it</q> <q>skip this one</q>", "<q>close it</q> <q>skip this one</q>")
        self.is_refused("<q>not this</q>", 'nobody can say "not this"')

    def test_a_check_tells_what_is_not_up_to_date_and_writes_nothing(self):
        self.grammar("quiet.xml", wake="<P>wake up</P>")
        status, told, written = self.run_tool('<span data-rule="wake">get up</span>', "--check")
        self.assertEqual(status, 1)
        self.assertIn("not up to date", told)
        self.assertEqual(written, '<span data-rule="wake">get up</span>')


if __name__ == "__main__":
    unittest.main()
