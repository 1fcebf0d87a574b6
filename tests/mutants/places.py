"""Where a source file of the tool can be changed, and how.

Conditions, constants, calls, early exits and arithmetic; never comments, texts, preprocessor lines, static_assert,
attributes or the bounds of arrays. The sources are formatted: a `<` with blanks around it compares, another one opens a
template's arguments.
"""

import dataclasses
import re

TOKEN = re.compile(
    r"""(?P<skipped>\s+ | //[^\n]* | /\*.*?\*/ | ^\#(?:\\\n|[^\n])*)
    | (?P<text>(?:u8|[LuU])?"(?:\\.|[^"\\\n])*")
    | (?P<character>'(?:\\.|[^'\\])+')
    | (?P<number>(?:0[xX][0-9A-Fa-f']+ | [0-9][0-9']*(?:\.[0-9]*)?)[uUlLzZ]*)
    | (?P<word>[A-Za-z_]\w*)
    | (?P<sign><=> | <<= | >>= | \.\.\. | -> | :: | \+\+ | -- | << | >> | <= | >= | == | != | && | \|\|
        | [-+*/%&|^]= | .)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

# Every way to be wrong that is worth a mutant: the other side of a bound, and the opposite.
COMPARISONS = {
    "==": ["!="],
    "!=": ["=="],
    "<": ["<=", ">="],
    "<=": ["<", ">"],
    ">": [">=", "<="],
    ">=": [">", "<"],
    "&&": ["||"],
    "||": ["&&"],
}
SWAPPED = (("+", "-"), ("+=", "-="), ("*", "/"), ("&", "|"), ("<<", ">>"))
ARITHMETIC = dict(SWAPPED) | {other: sign for sign, other in SWAPPED}
NO_CALL = ("return", "sizeof", "if", "while", "for", "switch")
OPENING, CLOSING = "([{", ")]}"


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclasses.dataclass(frozen=True)
class Place:
    kind: str
    start: int
    end: int
    after: str  # what stands there instead

    def apply(self, source):
        """The mutated source, of as many lines."""
        lost = source[self.start : self.end].count("\n") - self.after.count("\n")
        return source[: self.start] + self.after + "\n" * lost + source[self.end :]

    def line(self, source):
        return source.count("\n", 0, self.start) + 1


def tokens_of(source):
    for match in TOKEN.finditer(source):
        if match.lastgroup != "skipped":
            yield Token(match.lastgroup, match.group(), match.start())


def partners(tokens):
    """The index of each opening bracket's closing one, and the other way round."""
    found, stack = {}, []
    for index, token in enumerate(tokens):
        if token.kind == "sign" and token.text in OPENING:
            stack.append(index)
        elif token.kind == "sign" and token.text in CLOSING:
            found[index] = stack.pop()
            found[found[index]] = index
    return found


class File:
    def __init__(self, source):
        self.source = source
        self.tokens = list(tokens_of(source))
        self.partner = partners(self.tokens)

    def text(self, index):
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def kind(self, index):
        return self.tokens[index].kind if 0 <= index < len(self.tokens) else ""

    def is_binary(self, index):
        token = self.tokens[index]
        return self.source[token.start - 1].isspace() and self.source[token.end].isspace()

    def untouchable(self):
        """Indexes of static_assert, attributes and the bounds of declared arrays."""
        found = set()
        for index, token in enumerate(self.tokens):
            if token.text == "static_assert":
                found.update(range(index, self.partner[index + 1] + 1))
            elif token.text == "[" and (self.text(index + 1) == "[" or self.is_bound(index)):
                found.update(range(index, self.partner[index] + 1))
        return found

    def is_bound(self, index):
        """TYPE NAME[...], TYPE *NAME[...] or (&NAME)[...]; not EXPRESSION[...]."""
        if self.text(index - 1) == ")":
            return self.text(self.partner[index - 1] + 1) == "&"
        before = self.tokens[index - 2]
        declared = before.kind == "word" and before.text not in ("return", "case", "else", "co_return")
        pointer = before.text in ("*", "&") and not self.source[before.end].isspace() and self.kind(index - 3) == "word"
        return self.kind(index - 1) == "word" and (declared or pointer)

    def starts_statement(self, index):
        before = self.text(index - 1)
        if before == ")":
            return self.text(self.partner[index - 1] - 1) in ("if", "for", "while")
        return before in (";", "{", "}", "else", "do")

    def call_end(self, index):
        """Behind `a.b->c::d(...)...;` that begins here: the index of the semicolon, None for anything else."""
        called = False
        while self.kind(index) == "word" and self.text(index) not in NO_CALL:
            index += 1
            while self.text(index) in ("(", "["):
                called = self.text(index) == "("
                index = self.partner[index] + 1
            if self.text(index) == ";":
                return index if called else None
            if self.text(index) not in (".", "->", "::"):
                return None
            index += 1
        return None

    def statement_end(self, index):
        while self.text(index) != ";":
            index = self.partner[index] + 1 if self.text(index) in tuple(OPENING) else index + 1
        return index

    def places(self):
        barred = self.untouchable()
        for index, token in enumerate(self.tokens):
            if index not in barred:
                yield from self.places_at(index, token)

    def places_at(self, index, token):
        if token.kind == "sign" and token.text in COMPARISONS and self.is_binary(index):
            for other in COMPARISONS[token.text]:
                yield Place("condition", token.start, token.end, other)
        elif token.kind == "sign" and token.text in ARITHMETIC and self.is_binary(index):
            yield Place("arithmetic", token.start, token.end, ARITHMETIC[token.text])
        elif token.text == "!":
            yield Place("condition", token.start, token.end, "")
        elif token.text in ("if", "while") and self.text(index + 1) == "(" and self.has_no_operator(index + 1):
            opening, closing = self.tokens[index + 1], self.tokens[self.partner[index + 1]]
            inside = self.source[opening.end : closing.start]
            yield Place("condition", opening.end, closing.start, f"!({inside})")
        elif token.kind in ("number", "character") or token.text in ("true", "false"):
            if after := next_constant(token):
                yield Place("constant", token.start, token.end, after)
        if token.text == "return" and self.starts_statement(index) and self.text(index - 1) in (")", "else"):
            yield Place("exit", token.start, self.tokens[self.statement_end(index)].end, ";")
        elif token.kind == "word" and self.starts_statement(index) and (end := self.call_end(index)):
            yield Place("call", token.start, self.tokens[end].end, ";")

    def has_no_operator(self, opening):
        inside = range(opening + 1, self.partner[opening])
        return not any(self.text(index) in (*COMPARISONS, "!", ";", "=") for index in inside)


def next_constant(token):
    """The constant that stands instead: one more, the other truth value. None where there is none."""
    if token.kind == "word":
        return {"true": "false", "false": "true"}[token.text]
    if token.kind == "character":
        return f"char({token.text} + 1)"
    digits, suffix = re.fullmatch(r"(.*?)([uUlLzZ]*)", token.text).groups()
    digits = digits.replace("'", "")
    if digits.startswith(("0x", "0X")):
        digits = digits[2:]
        return f"0x{int(digits, 16) + 1:0{len(digits)}X}{suffix}"
    if "." in digits:
        return f"{float(digits) + 1}"
    if digits.startswith("0") and len(digits) > 1:
        return f"0{int(digits, 8) + 1:o}{suffix}"
    return f"{int(digits) + 1}{suffix}"
