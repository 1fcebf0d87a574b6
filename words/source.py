"""Reads the tool's C++ sources as far as words need it: functions, constants, tables and the literals in them.

Not a C++ parser: it knows the shapes that this tool's sources have, and stops with a word where it meets another.
"""

import dataclasses
import os
import re
from collections.abc import Iterator

TOKEN = re.compile(
    r'(?P<blank>\s+|//[^\n]*|/\*.*?\*/|\#(?:[^\n\\]|\\.|\\\n)*)'
    r'|(?P<text>"(?:[^"\\\n]|\\.)*")'
    r"|(?P<char>'(?:[^'\\\n]|\\.)*')"
    r"|(?P<number>(?:0x[0-9A-Fa-f']+|[0-9][0-9.']*)[a-zA-Z]*)"
    r"|(?P<name>~?[A-Za-z_]\w*)"
    r"|(?P<sign>::|->|\[\[|\]\]|[=!<>+*/&|^%-]=|&&|\|\||.)",
    re.DOTALL,
)
ESCAPES = {"n": "\n", "r": "\r", "t": "\t", "a": "\a", "\\": "\\", '"': '"', "'": "'"}
OPENING, CLOSING = {"(", "{", "[", "[["}, {")", "}", "]", "]]"}


class Unreadable(Exception):
    """A shape of source that these routines do not know."""


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str  # text, char, number, name or sign
    value: str  # of a text what it holds, with adjacent ones joined
    line: int


Tokens = list[Token]


def literal(quoted: str) -> str:
    def character(match: re.Match[str]) -> str:
        if match[1] not in ESCAPES:
            raise Unreadable(f"escape \\{match[1]} in {quoted}")
        return ESCAPES[match[1]]

    return re.sub(r"\\(.)", character, quoted[1:-1])


def tokens_of(source: str) -> Tokens:
    tokens: Tokens = []
    line = 1
    for match in TOKEN.finditer(source):
        kind, value = str(match.lastgroup), match[0]
        if kind == "text" and tokens and tokens[-1].kind == "text":
            tokens[-1] = Token("text", tokens[-1].value + literal(value), tokens[-1].line)
        elif kind != "blank":
            tokens.append(Token(kind, literal(value) if kind == "text" else value, line))
        line += value.count("\n")
    return tokens


def closing(tokens: Tokens, opening: int) -> int:
    """Where the bracket at `opening` is closed."""
    depth = 0
    for at in range(opening, len(tokens)):
        if tokens[at].kind == "sign":
            depth += (tokens[at].value in OPENING) - (tokens[at].value in CLOSING)
            if depth == 0:
                return at
    raise Unreadable(f"line {tokens[opening].line}: a bracket that nothing closes")


def split(tokens: Tokens, separator: str = ",") -> list[Tokens]:
    """What stands between separators outside all brackets."""
    parts: list[Tokens] = [[]]
    depth = 0
    for token in tokens:
        if token.kind == "sign":
            depth += (token.value in OPENING) - (token.value in CLOSING)
        if depth == 0 and token.kind == "sign" and token.value == separator:
            parts.append([])
        else:
            parts[-1].append(token)
    return [part for part in parts if part]


def values(tokens: Tokens) -> list[str]:
    return [token.value for token in tokens]


@dataclasses.dataclass
class Function:
    name: str
    file: str
    owner: str  # the class it is a member of, or nothing
    is_static: bool
    result: str  # what it returns
    parameters: list[str]
    body: Tokens


@dataclasses.dataclass
class Constant:
    name: str
    file: str
    is_static: bool
    type: str
    value: Tokens


@dataclasses.dataclass
class Struct:
    name: str
    file: str
    fields: list[str]


@dataclasses.dataclass
class Call:
    name: str
    is_member: bool
    arguments: list[Tokens]
    line: int


def calls_in(tokens: Tokens) -> Iterator[Call]:
    for at in range(len(tokens) - 1):
        if tokens[at].kind == "name" and tokens[at + 1].value == "(" and tokens[at + 1].kind == "sign":
            end = closing(tokens, at + 1)
            is_member = at > 0 and tokens[at - 1].value in (".", "->")
            yield Call(tokens[at].value, is_member, split(tokens[at + 2 : end]), tokens[at].line)


def without_prefixes(head: Tokens) -> Tokens:
    """Without attributes and template parameters in front."""
    while head and head[0].value in ("[[", "template"):
        if head[0].value == "[[":
            head = head[closing(head, 0) + 1 :]
            continue
        depth = 0
        for at, token in enumerate(head):
            depth += (token.value == "<") - (token.value == ">")
            if token.value == ">" and depth == 0:
                head = head[at + 1 :]
                break
    return head


def fields_of(inside: Tokens) -> list[str]:
    """The names of a struct's data members, in order."""
    fields = []
    for member in split(inside, ";"):
        if "(" in values(member) or member[0].value in ("static", "struct", "class", "enum"):
            continue
        for declarator in split(member):
            fields.append(declared_name(declarator))
    return fields


def declared_name(declarator: Tokens) -> str:
    name = ""
    for token in declarator:
        if token.kind == "sign" and token.value in ("=", "{", "["):
            break
        if token.kind == "name":
            name = token.value
    return name


class Source:
    """What the C++ files of these folders define."""

    def __init__(self, root: str, folders: list[str]):
        self.functions: list[Function] = []
        self.constants: list[Constant] = []
        self.structs: list[Struct] = []
        for folder in folders:
            for name in sorted(os.listdir(os.path.join(root, folder))):
                if name.endswith((".cpp", ".h")):
                    file = f"{folder}/{name}"
                    with open(os.path.join(root, file), encoding="utf-8") as text:
                        self.take_scope(file, tokens_of(text.read()), "")

    def take_scope(self, file: str, tokens: Tokens, owner: str) -> None:
        """Definitions one behind the other, of a file or of a class."""
        start = at = 0
        while at < len(tokens):
            value = tokens[at].value if tokens[at].kind == "sign" else ""
            if value == "{":
                end = closing(tokens, at)
                if self.take_braces(file, without_prefixes(tokens[start:at]), tokens[at + 1 : end], owner):
                    start = end + 1
                at = end
            elif value in OPENING:
                at = closing(tokens, at)
            elif value == ";":
                self.constants += constants_in(file, tokens[start:at])
                start = at + 1
            elif value == ":" and tokens[at - 1].value in ("public", "private", "protected"):
                start = at + 1
            at += 1

    def take_braces(self, file: str, head: Tokens, inside: Tokens, owner: str) -> bool:
        """Braces of the outer level. True = they end a definition, as those of a function do."""
        words = values(head)
        if words and words[0] in ("struct", "class") and "(" not in words:
            self.structs.append(Struct(words[1], file, fields_of(inside)))
            self.take_scope(file, inside, words[1])
            return False
        if "(" not in words or "=" in words[: words.index("(")]:
            return False
        opening = words.index("(")
        parameters = [declared_name(part) for part in split(head[opening + 1 : closing(head, opening)])]
        if opening >= 3 and words[opening - 2] == "::":
            owner = words[opening - 3]
        name, result = words[opening - 1], [word for word in words[: opening - 1] if word not in ("static", "const")]
        self.functions.append(
            Function(name, file, owner, "static" in words[:opening], result[0] if result else "", parameters, inside)
        )
        return True


def constants_in(file: str, statement: Tokens) -> list[Constant]:
    """NAME = VALUE of a declaration, of each of its declarators."""
    statement = without_prefixes(statement)
    words = values(statement)
    kind = next((word for word in words if word not in ("static", "constexpr", "const", "inline", "extern")), "")
    found = []
    for declarator in split(statement):
        names = values(declarator)
        if "=" in names and kind not in ("using", "enum"):
            at = names.index("=")
            found.append(
                Constant(declared_name(declarator), file, "static" in words, kind, declarator[at + 1 :])
            )
    return found
