# Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
"""What is said to the program: phrases of a grammar file, and phrases that only sound like them."""

import os
import random
import xml.etree.ElementTree as ET

USER_KEYWORDS = ["browser", "calculator", "camera", "chess", "editor", "excel", "firefox", "mail",
                 "music", "paint", "photos", "player", "radio", "settings", "solitaire",
                 "spreadsheet", "terminal", "weather", "word processor", "my documents"]

LETTERS_RULE = "free space"
KEYWORD_RULE = "notepad"


def with_user_keywords(grammar, out):
    """Writes the grammar once more with a rule for each user keyword, like that of "notepad"."""
    text = open(grammar).read()
    begin = text.index(f'<RULE NAME="{KEYWORD_RULE}"')
    rule = text[begin:text.index("</RULE>", begin) + len("</RULE>\n")]
    more = "".join(rule.replace(KEYWORD_RULE, keyword) for keyword in USER_KEYWORDS)
    with open(out, "w") as file:
        file.write(text.replace("</GRAMMAR>", more + "</GRAMMAR>"))


def _wordings(element):
    """All ways to say an element, as lists of words; the shortest first."""
    if element.tag == "L":
        return [way for child in element for way in _wordings(child)]
    ways = [(element.text or "").split()]
    for child in element:
        ways = [way + more for way in ways for more in _wordings(child)]
    if element.tag == "O":
        ways = [[]] + ways
    return ways


def phrases(grammar, wordings, seed):
    """(rule, text) of every rule: each way without options, and some with, `wordings` at least
    where there are as many."""
    chosen = random.Random(seed)
    said = []
    for rule in ET.parse(grammar).getroot():
        name = rule.get("NAME")
        bare = {" ".join(way) for way in _wordings_without_options(rule)}
        ways = sorted({" ".join(way) for way in _wordings(rule)} - bare - {""})
        more = chosen.sample(ways, min(len(ways), max(2, wordings - len(bare))))
        said += [(name, text) for text in sorted(bare) + more]
    return said


def _wordings_without_options(rule):
    bare = ET.fromstring(ET.tostring(rule))
    for option in bare.findall("O"):
        bare.remove(option)
    return _wordings(bare)


def spoken(text, rule):
    """The text as a speech synthesiser has to see it to say it right."""
    words = text.split()
    if rule == LETTERS_RULE and words[-1] == "a":
        words[-1] = "ay"
    whole = {"logoff": "log off", "powerdown": "power down", "whats": "what's", "k": "K", "t": "T",
             "okay": "okay", "ram": "ram", "rom": "rom"}
    return " ".join(whole.get(word, word) for word in words)


def answers():
    """What the program itself says, as it may come back into its microphone."""
    lines = open(os.path.join(os.path.dirname(__file__), "answers.txt")).read().splitlines()
    return [line for line in lines if line]


def near_misses(dictionary, grammar, one_phone, seed):
    """Phrases that are no command: those written down, and words one phone away from a command."""
    lines = open(os.path.join(os.path.dirname(__file__), "near_misses.txt")).read().splitlines()
    texts = [line for line in lines if line]
    return sorted(set(texts) | set(_one_phone_away(dictionary, grammar, one_phone, seed)))


def _one_phone_away(dictionary, grammar, count, seed):
    """Words of the dictionary that differ from a one-word command by one phone put in, left out
    or exchanged."""
    ways = {}
    for line in open(dictionary, encoding="latin-1"):
        word, *phones = line.split()
        ways.setdefault(word.split("(")[0], []).append(tuple(phones))
    commands = sorted({text for _, text in phrases(grammar, 0, seed) if " " not in text})
    same = {way for word in commands for way in ways.get(word, [])}
    by_edit = {}
    for word, said in ways.items():
        if word.isalpha() and len(word) > 2 and word not in commands:
            for way in said:
                for hole in _holes(way):
                    by_edit.setdefault(hole, set()).add(word)
    homophones = {word for word, said in ways.items() if any(way in same for way in said)}
    chosen = random.Random(seed)
    found = set()
    for command in commands:
        near = {word for way in ways.get(command, []) for hole in _holes(way)
                for word in by_edit.get(hole, ())} - homophones
        found |= set(chosen.sample(sorted(near), min(len(near), count)))
    return sorted(found)


def _holes(way):
    """Two ways share one of these exactly if one edit leads from one to the other."""
    for i in range(len(way)):
        yield way[:i] + ("?",) + way[i + 1:]
    for i in range(len(way) + 1):
        yield way[:i] + ("?",) + way[i:]
