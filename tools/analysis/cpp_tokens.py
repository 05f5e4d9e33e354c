# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Splits C++ source into tokens. Comments and preprocessor lines are left out.

The source must be formatted by clang-format with the project's settings: binary operators have a space on both sides,
the brackets of a template argument list have none inside. This tells both apart without parsing C++.
"""

import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Token:
    """One token. `kind` is word, number, string or mark; `start` and `end` are offsets, `line` counts from 1."""

    kind: str
    text: str
    start: int
    end: int
    line: int
    spaced: bool  # white space before and after


_PATTERN = re.compile(
    r"""(?P<space>\s+)
      | (?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.)*)
      | (?P<raw>(?:u8|[uUL])?R"(?P<delimiter>[^()\\\s]{0,16})\(.*?\)(?P=delimiter)")
      | (?P<string>(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*"|(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')
      | (?P<number>\.?\d(?:[eEpP][+-]|'\w|[\w.])*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<mark><=>|->\*|\.\.\.|<<=|::|->|\+\+|--|&&|\|\||[-+*/%&|^=!<>]=|<<|>>|.)
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE)


def tokens_of(text):
    """The tokens of a source file, in order."""
    tokens = []
    line = 1
    for match in _PATTERN.finditer(text):
        kind = {"raw": "string"}.get(match.lastgroup, match.lastgroup)
        if kind == "delimiter":
            kind = "string"
        if kind not in ("space", "comment", "directive"):
            before = text[match.start() - 1:match.start()]
            after = text[match.end():match.end() + 1]
            tokens.append(Token(kind, match.group(), match.start(), match.end(), line,
                                before.isspace() and after.isspace()))
        line += match.group().count("\n")
    return tokens


OPENING = {"(": ")", "[": "]", "{": "}"}
CLOSING = {closing: opening for opening, closing in OPENING.items()}


def partners(tokens):
    """Maps the index of each bracket to the index of its partner, for ( [ and {. Brackets without partner are left out."""
    open_ones = []
    result = {}
    for index, token in enumerate(tokens):
        if token.kind != "mark":
            continue
        if token.text in OPENING:
            open_ones.append(index)
        elif token.text in CLOSING and open_ones:
            opening = open_ones.pop()
            result[opening] = index
            result[index] = opening
    return result


def template_lists(tokens):
    """The index ranges [first, last] of template argument lists, angle brackets included; nested ones are joined."""
    ranges = []
    index = 0
    while index < len(tokens):
        last = _end_of_template_list(tokens, index)
        if last is None:
            index += 1
        else:
            ranges.append((index, last))
            index = last + 1
    return ranges


def _end_of_template_list(tokens, first):
    """The index of the bracket that closes the list that opens at `first`; None where no list opens."""
    token = tokens[first]
    if token.text != "<" or token.kind != "mark" or first == 0:
        return None
    before = tokens[first - 1]
    if before.kind != "word" or before.text == "operator":
        return None
    if before.text != "template" and before.end != token.start:
        return None
    depth = 0
    for index in range(first, len(tokens)):
        text = tokens[index].text
        if tokens[index].kind != "mark" or tokens[index].spaced:
            continue
        if text in (";", "{"):
            return None
        depth += {"<": 1, ">": -1, ">>": -2}.get(text, 0)
        if depth <= 0:
            return index
    return None
