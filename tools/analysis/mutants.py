# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Finds the places of a C++ source where a small change should make a test fail, and draws a sample of them."""

import re
from dataclasses import dataclass

from cpp_tokens import partners, template_lists, tokens_of

_OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "<<": (">>",), ">>": ("<<",),
    "&&": ("||",), "||": ("&&",), "&": ("|",), "|": ("&",), "^": ("&",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "%=": ("*=",), "&=": ("|=",), "|=": ("&=",),
}
_STEPS = {"++": "--", "--": "++"}
_BOOLS = {"true": "false", "false": "true"}
_INTEGER = re.compile(r"(0[xX][0-9a-fA-F]+|\d+)([uUlLzZ]*)$")
_NO_CALLS = {"return", "throw", "delete", "new", "co_return", "goto", "case", "using", "if", "while", "for", "switch",
             "catch", "sizeof", "static_assert", "decltype", "explicit"}
# These change speed only.
_HINTS = {"reserve", "shrink_to_fit"}
_DECLARING = {"class", "struct", "union", "enum", "namespace"}


@dataclass(frozen=True, order=True)
class Mutant:
    """Replaces text[start:end] of `file` by `after`. `line` counts from 1."""

    file: str
    line: int
    start: int
    end: int
    before: str
    after: str

    def apply(self, text):
        """The mutated text of the file."""
        return text[:self.start] + self.after + text[self.end:]


def mutants_of(file, text):
    """Every mutant of a source file, sorted."""
    tokens = tokens_of(text)
    pairs = partners(tokens)
    banned = _banned(tokens, pairs)
    changes = set()
    for index, token in enumerate(tokens):
        if index not in banned:
            changes.update((token.line, token.start, token.end, after) for after in _replacements(tokens, index))
    for index, token in enumerate(tokens):
        if token.text in ("if", "while") and token.kind == "word" and index not in banned:
            changes.update(_conditions(text, tokens, pairs, index))
    changes.update(_removed_calls(tokens, pairs, banned))
    return sorted(Mutant(file, line, start, end, text[start:end], after) for line, start, end, after in changes)


def code_lines(text):
    """How many lines hold at least one token."""
    return len({token.line for token in tokens_of(text)})


def draw(mutants, random):
    """Yields one mutant of each line that has any, the lines and the mutants at random.

    Every line has the same chance, however many mutants it has.
    """
    lines = {}
    for mutant in sorted(mutants):
        lines.setdefault((mutant.file, mutant.line), []).append(mutant)
    places = sorted(lines)
    random.shuffle(places)
    for place in places:
        yield random.choice(lines[place])


def _banned(tokens, pairs):
    """Indices of tokens that no mutant may touch: template lists, static_assert, operator names, pure virtuals."""
    banned = set()
    for first, last in template_lists(tokens):
        banned.update(range(first, last + 1))
    for index, token in enumerate(tokens):
        following = tokens[index + 1].text if index + 1 < len(tokens) else ""
        if token.text == "static_assert" and index + 1 in pairs:
            banned.update(range(index, pairs[index + 1] + 1))
        elif token.text == "operator":
            banned.add(index + 1)
        elif token.text == "=" and following == "0" and tokens[index - 1].text in (")", "const", "override", "noexcept"):
            banned.add(index + 1)
    return banned


def _replacements(tokens, index):
    """The texts that may replace one token."""
    token = tokens[index]
    if token.kind == "word":
        return [_BOOLS[token.text]] if token.text in _BOOLS else []
    if token.kind == "number":
        return _other_integers(token.text)
    if token.kind != "mark":
        return []
    if token.text in _STEPS:
        return [_STEPS[token.text]]
    nearby = {near.kind for near in (tokens[index - 1], tokens[min(index + 1, len(tokens) - 1)])}
    if not token.spaced or token.text not in _OPERATORS or (token.text in "+<<>>" and "string" in nearby):
        return []
    return list(_OPERATORS[token.text])


def _other_integers(text):
    match = _INTEGER.match(text.replace("'", ""))
    if match is None or (text[0] == "0" and text.strip("0uUlLzZ") and text[1:2] not in "xX"):
        return []
    digits, suffix = match.groups()
    value = int(digits, 0)
    write = hex if digits[:2] in ("0x", "0X") else str
    return [write(other) + suffix for other in (value + 1, value - 1) if other >= 0]


def _conditions(text, tokens, pairs, index):
    """Changes of the condition after `if` or `while`: negated, and fixed to either value."""
    opening = index + 1
    if tokens[opening].text != "(" or opening not in pairs:
        return
    closing = pairs[opening]
    first = inner = opening + 1
    while inner < closing:
        if tokens[inner].text == ";":
            first = inner + 1
        inner = pairs.get(inner, inner) + 1
    if any(tokens[inner].text == "=" for inner in range(first, closing)) or first >= closing:
        return
    start, end = tokens[first].start, tokens[closing - 1].end
    line = tokens[first].line
    condition = text[start:end]
    if condition in ("true", "false"):
        return
    yield line, start, end, f"!({condition})"
    yield line, start, end, "false"
    if tokens[index].text == "if":
        yield line, start, end, "true"


def _removed_calls(tokens, pairs, banned):
    """Changes that remove a statement that is a call, up to its semicolon."""
    in_code = _in_code(tokens, pairs)
    for index, token in enumerate(tokens):
        if index == 0 or index in banned or not in_code[index] or not _starts_statement(tokens, pairs, index):
            continue
        end = _end_of_call(tokens, pairs, index)
        if end is not None:
            yield token.line, token.start, tokens[end].end, ""


def _starts_statement(tokens, pairs, index):
    before = tokens[index - 1]
    if before.text in (";", "{", "}", "else", "do") and before.kind in ("mark", "word"):
        return True
    if before.text != ")" or index - 1 not in pairs:
        return False
    head = tokens[pairs[index - 1] - 1].text
    return head in ("if", "for", "while")


def _end_of_call(tokens, pairs, index):
    """The index of the `)` that ends the call statement that starts at `index`; None where there is none."""
    previous = None
    lists = None
    while index < len(tokens):
        token = tokens[index]
        if token.text == ";":
            return index - 1 if previous == ")" else None
        if token.kind == "word":
            if token.text in _NO_CALLS or token.text in _HINTS or previous in ("word", ">"):
                return None
            previous = "word"
        elif token.text in ("(", "[") and index in pairs and (token.text == "(" or previous is not None):
            index = pairs[index]
            previous = tokens[index].text
        elif token.text == "<" and previous == "word":
            lists = lists or dict(template_lists(tokens))
            if index not in lists:
                return None
            index = lists[index]
            previous = ">"
        elif token.text in ("::", ".", "->"):
            previous = token.text
        else:
            return None
        index += 1
    return None


def _in_code(tokens, pairs):
    """For each token, whether the innermost braces around it hold statements rather than declarations."""
    result = []
    scopes = [False]
    for index, token in enumerate(tokens):
        if token.text == "}" and token.kind == "mark" and len(scopes) > 1:
            scopes.pop()
        result.append(scopes[-1])
        if token.text == "{" and token.kind == "mark":
            scopes.append(not _opens_declarations(tokens, pairs, index))
    return result


def _opens_declarations(tokens, pairs, opening):
    """Whether the brace at `opening` belongs to a class, an enumeration or a namespace."""
    index = opening - 1
    while index >= 0 and tokens[index].text not in (";", "{", "}"):
        if tokens[index].text == ")" and index in pairs:
            return False
        if tokens[index].text in _DECLARING:
            return True
        index -= 1
    return False
