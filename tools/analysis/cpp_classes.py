# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Finds the classes of C++ sources: how long they are, and which of their members are booleans."""

from collections import defaultdict
from dataclasses import dataclass, field

from cpp_tokens import partners, tokens_of

_KEYS = ("class", "struct", "union")
_QUALIFIERS = ("mutable", "static", "constexpr", "inline", "const", "std", "::", "atomic", "<", ">")


@dataclass
class ClassFigures:
    """Lines of the declaration and of the member functions that are defined outside of it, and the boolean members."""

    declared: int = 0
    defined: int = 0
    booleans: list = field(default_factory=list)

    @property
    def lines(self):
        """All lines of the class."""
        return self.declared + self.defined


def classes_of(texts):
    """Maps class names to ClassFigures, for the sources of one room. Classes without a body are left out."""
    return {name: one for name, one in _figures_of(texts).items() if one.declared}


def owners_of_definitions(text):
    """The names of the classes whose member functions a source defines outside of their declarations."""
    return sorted(name for name, one in _figures_of([text]).items() if one.defined)


def _figures_of(texts):
    figures = defaultdict(ClassFigures)
    for text in texts:
        tokens = tokens_of(text)
        _walk(tokens, partners(tokens), 0, len(tokens), None, figures)
    return figures


def _walk(tokens, pairs, first, end, owner, figures):
    """Goes through the statements of one scope; `owner` is the class whose body it is, None for a namespace."""
    start = index = first
    while index < end:
        text = tokens[index].text if tokens[index].kind == "mark" else ""
        if text in ("(", "[") and index in pairs:
            index = pairs[index]
        elif text == "{" and index in pairs:
            closing = pairs[index]
            head = tokens[start:index]
            if _is_member_value(tokens, head, closing):
                index = closing + 1
                continue
            _take_body(tokens, pairs, (start, index, closing), owner, figures)
            index = closing
            start = closing + 1
        elif text in (";", "}") or (text == ":" and tokens[index - 1].text in ("public", "protected", "private")):
            if owner is not None and text == ";":
                figures[owner].booleans.extend(_booleans(tokens[start:index]))
            start = index + 1
        index += 1


def _is_member_value(tokens, head, closing):
    """Whether a brace holds the first value of a member, in its declaration or in a constructor's list."""
    words = [token.text for token in head]
    if not words or any(key in words for key in (*_KEYS, "namespace", "enum", "extern")) and "(" not in words:
        return False
    following = tokens[closing + 1].text if closing + 1 < len(tokens) else ""
    return following in (",", "{") or (following == ";" and "(" not in words) or words[-1] == "="


def _take_body(tokens, pairs, span, owner, figures):
    start, opening, closing = span
    head = tokens[start:opening]
    words = [token.text for token in head]
    parameters = words.index("(") if "(" in words else None
    lines = tokens[closing].line - tokens[start].line + 1
    if parameters is None and "enum" not in words and any(key in words for key in _KEYS):
        key = next(index for index, word in enumerate(words) if word in _KEYS)
        colon = words.index(":", key) if ":" in words[key:] else len(words)
        name = [word for word in words[key:colon] if word not in ("final", "::", *_KEYS)]
        if name:
            figures[name[-1]].declared += lines
            _walk(tokens, pairs, opening + 1, closing, name[-1], figures)
    elif parameters is None and "enum" not in words:
        _walk(tokens, pairs, opening + 1, closing, None, figures)
    elif parameters is not None and owner is None:
        owners = [words[index - 1] for index in range(1, parameters) if words[index] == "::"]
        qualified = parameters >= 3 and "::" in (words[parameters - 2], words[parameters - 3])
        if owners and (qualified or "operator" in words):
            figures[owners[-1]].defined += lines


def _booleans(statement):
    """The names of the boolean members that a statement of a class body declares."""
    words = [token.text for token in statement]
    if "bool" not in words:
        return []
    at = words.index("bool")
    if any(word not in _QUALIFIERS for word in words[:at]):
        return []
    names = [word for word in words[at + 1:] if word != ">"]
    if not names or not names[0].isidentifier() or names[1:2] == ["("] or names[0] == "operator":
        return []
    return [names[0]]
