"""What the tool can say and record, read from its sources: every sentence, where it stands, and who comes to say it."""

import dataclasses
import itertools
import re

from source import Call, Constant, Function, Source, Token, Tokens, Unreadable, calls_in, split, values

ROOMS = ("cli", "chassis", "network", "snmp", "user", "sensor", "sel", "ipmi", "oplog", "ui", "system")
FOLDERS = tuple(f"cfgtool/{room}" for room in ROOMS)

# What prints its first argument as printf does, and what it puts behind. Nothing else may print, but for list_row()
# and these routines themselves.
PRINTING = {"say": "\r\n", "refuse": "\r\n", "say_raw": "", "say_now": "", "sdr_diagnose": "\r\n", "printf": ""}
OTHER_PRINTING = {"puts", "putchar", "fputs", "fputc", "putc", "fwrite", "vprintf", "fprintf"}
PRINTERS = {"print_line", "say", "refuse", "say_raw", "say_now", "sdr_diagnose", "list_row"}

RECORDING = {"log_record": 2, "log_change": 1, "save_sys_log": 2}  # which argument is the record

# A template parameter that is a routine: where it is called, and what it is bound to.
BOUND = {("cfgtool/ui/prompt.h", "ask"): ("read_password", "read_community")}

CONVERSION = re.compile(r"%[-0-9.*]*[a-zA-Z]|%%")


@dataclasses.dataclass(frozen=True, order=True)
class Sentence:
    text: str  # as printf takes it, but that values which are literals stand in it
    ending: str
    file: str
    function: str
    call: str


@dataclasses.dataclass
class Reach:
    """What running a function can come to."""

    functions: list[Function]
    constants: list[Constant]


def is_text(expression: Tokens) -> bool:
    return len(expression) == 1 and expression[0].kind == "text"


def between(tokens: Tokens, opening: int) -> Tokens:
    depth = 0
    for at in range(opening, len(tokens)):
        depth += tokens[at].value in ("{", "(", "[") and tokens[at].kind == "sign"
        depth -= tokens[at].value in ("}", ")", "]") and tokens[at].kind == "sign"
        if depth == 0:
            return tokens[opening + 1 : at]
    raise Unreadable("a bracket that nothing closes")


def rows_of(value: Tokens) -> list[list[Tokens]]:
    """The cells of each row of a table, or of the one row that the value is."""
    if not value or value[0].value != "{":
        return []
    parts = split(between(value, 0))
    if parts and all(part[0].value == "{" for part in parts):
        return [split(between(part, 0)) for part in parts]
    return [parts]


class Words:
    def __init__(self, source: Source):
        self.source = source
        self.within: list[Function] | None = None  # the only callers that count, all by default
        self.calls: dict[str, list[tuple[Function, Call]]] = {}  # by what is called
        for function in source.functions:
            for call in calls_in(function.body):
                self.calls.setdefault(call.name, []).append((function, call))

    # Looking up ------------------------------------------------------------------------------------------------------

    def functions_named(self, name: str, file: str, is_member: bool) -> list[Function]:
        found = [f for f in self.source.functions if f.name == name and (f.owner != "") == is_member]
        own = [f for f in found if f.file == file]
        return own or [f for f in found if not f.is_static]

    def constant(self, name: str, file: str) -> Constant | None:
        found = [c for c in self.source.constants if c.name == name]
        own = [c for c in found if c.file == file]
        shared = [c for c in found if c.file.endswith(".h") or not c.is_static]
        return (own or shared or [None])[0]

    def callers(self, function: Function) -> list[tuple[Function, Call]]:
        names = [function.name, *(name for (_, name), bound in BOUND.items() if function.name in bound)]
        found = []
        for caller, call in itertools.chain.from_iterable(self.calls.get(name, []) for name in names):
            same = call.name == function.name and call.is_member == (function.owner != "")
            is_bound = function.name in BOUND.get((caller.file, call.name), ())
            if is_bound or (same and (caller.file == function.file or not function.is_static)):
                if self.within is None or caller in self.within:
                    found.append((caller, call))
        return found

    # Values ----------------------------------------------------------------------------------------------------------

    def resolve(self, expression: Tokens, function: Function, depth: int = 0) -> list[str] | None:
        """All texts that an expression can be. None = not known here: a word typed, or a controller's."""
        if depth > 8 or not expression:
            return None
        words = values(expression)
        if is_text(expression):
            return [words[0]]
        if "?" in words:
            return self.both(expression, function, depth)
        if len(words) == 1 and expression[0].kind == "name":
            return self.named(words[0], function, depth)
        if len(words) > 3 and words[1] == "[" and words[-1] == "]":
            return self.named(words[0], function, depth)
        if len(words) == 3 and words[1] in (".", "->"):
            return self.field(words[2], function, depth)
        if len(words) > 2 and words[1] == "(" and words[-1] == ")":
            return self.returned(words[0], function, depth)
        return None

    def all_of(self, expressions: list[Tokens], function: Function, depth: int) -> list[str] | None:
        """Each of them must be known, but for a null pointer: that is never shown."""
        shown = [expression for expression in expressions if values(expression) != ["nullptr"]]
        found = [self.resolve(expression, function, depth + 1) for expression in shown]
        return joined(found)

    def both(self, expression: Tokens, function: Function, depth: int) -> list[str] | None:
        question = values(expression).index("?")
        return self.all_of(split(expression[question + 1 :], ":"), function, depth)

    def named(self, name: str, function: Function, depth: int) -> list[str] | None:
        if assigned := assignments(function.body, name):
            return self.all_of(assigned, function, depth) or flat(assigned)
        if name in function.parameters:
            at = function.parameters.index(name)
            given = [(caller, call.arguments[at : at + 1]) for caller, call in self.callers(function)]
            return joined([self.resolve(words[0], caller, depth + 1) for caller, words in given if words])
        constant = self.constant(name, function.file)
        if constant is None:
            return None
        return self.resolve(constant.value, function, depth + 1) or flat([constant.value])

    def field(self, name: str, function: Function, depth: int) -> list[str] | None:
        """A member of a struct: of all tables of it, of all routines that return one, and where it is assigned."""
        structs = [s for s in self.source.structs if name in s.fields]
        own = [s for s in structs if s.file in (function.file, function.file.replace(".cpp", ".h"))]
        for struct in own or structs:
            at = struct.fields.index(name)
            cells = [
                (function, row[at])
                for constant in self.source.constants
                if constant.type == struct.name
                for row in rows_of(constant.value)
                if at < len(row)
            ]
            for other in self.source.functions:
                if other.result == struct.name:
                    cells += [(other, row[at]) for row in returned_rows(other.body) if at < len(row)]
                if other.file == function.file:
                    cells += [(other, value) for value in member_assignments(other.body, name)]
            shown = [(where, cell) for where, cell in cells if values(cell) != ["nullptr"]]
            if texts := joined([self.resolve(cell, where, depth + 1) for where, cell in shown]):
                return texts
        return None

    def returned(self, name: str, function: Function, depth: int) -> list[str] | None:
        found = self.functions_named(name, function.file, False)
        if len(found) != 1:
            return None
        return self.all_of(returned_values(found[0].body), found[0], depth)

    # Sentences -------------------------------------------------------------------------------------------------------

    def said_by(self, functions: list[Function]) -> list[Sentence]:
        """What these say, with texts that are handed to them by one another."""
        self.within = functions
        return [sentence for function in functions for sentence in self.said_in(function)]

    def said_in(self, function: Function) -> list[Sentence]:
        found = []
        for call in calls_in(function.body):
            if function.name in PRINTERS or call.is_member:
                continue
            if call.name in OTHER_PRINTING:
                raise Unreadable(f"{function.file}: {function.name}() prints by {call.name}()")
            if call.name in PRINTING:
                found += self.sentences_of(call, function)
        return found

    def sentences_of(self, call: Call, function: Function) -> list[Sentence]:
        formats = self.resolve(call.arguments[0], function)
        if formats is None:
            raise Unreadable(f"{function.file}:{call.line}: {call.name}() of a text that is not to be found")
        where = (PRINTING[call.name], function.file, function.name, call.name)
        return [
            Sentence(text, *where) for each in formats for text in self.filled(each, call.arguments[1:], function, call)
        ]

    def filled(self, text: str, arguments: list[Tokens], function: Function, call: Call) -> list[str]:
        """The format with literals in the place of their conversions. One that begins with a value would fit nearly
        anything, so each text that the value can be stands there, if it is known; and if there is nothing else, it must
        be."""
        conversions = [match for match in CONVERSION.finditer(text) if match[0] != "%%"]
        choices: list[list[str]] = []
        for match, argument in zip(conversions, arguments, strict=True):
            known = None
            if match[0][-1] == "s":
                if is_text(argument) or "?" in values(argument) or match.start() == 0:
                    known = self.resolve(argument, function)
                if known is None and text == match[0]:
                    raise Unreadable(f"{function.file}:{call.line}: {' '.join(values(argument))} is not to be found")
            choices.append([match[0]] if known is None else [escaped(match[0] % value) for value in known])
        found = []
        for choice in itertools.product(*choices):
            shown, end = "", 0
            for match, value in zip(conversions, choice):
                shown += text[end : match.start()] + value
                end = match.end()
            found.append(shown + text[end:])
        return found

    # Records ---------------------------------------------------------------------------------------------------------

    def records_of(self, reach: Reach) -> list[str]:
        """What is recorded: literals with an event code, and formats of records without one."""
        tokens = [token for function in reach.functions for token in function.body]
        tokens += [token for constant in reach.constants for token in constant.value]
        found = {token.value for token in tokens if token.kind == "text" and "EvtCode:" in token.value}
        for function in reach.functions:
            for call in calls_in(function.body):
                if call.name in RECORDING and function.file != "cfgtool/oplog/oplog.cpp":
                    record, *arguments = call.arguments[RECORDING[call.name] :]
                    if is_text(record) and "EvtCode:" not in record[0].value and record[0].value not in ("", "%s"):
                        found.update(self.filled(record[0].value, arguments, function, call))
        return sorted(found)

    # Reach -----------------------------------------------------------------------------------------------------------

    def reach(self, begin: Tokens, file: str) -> Reach:
        found = Reach([], [])
        self.follow(begin, file, "", found)
        return found

    def follow(
        self, tokens: Tokens, file: str, owner: str, found: Reach, own_names: frozenset[str] = frozenset()
    ) -> None:
        """Adds what the tokens of a file name: in a member of `owner`, where `own_names` are variables."""
        for at, token in enumerate(tokens):
            if token.kind != "name":
                continue
            before = tokens[at - 1].value if at > 0 else ""
            behind = tokens[at + 1].value if at + 1 < len(tokens) else ""
            is_member = before in (".", "->")
            functions = [f for f in self.source.functions if f.owner == token.value and f.name.lstrip("~") == f.owner]
            if behind == "(" and not is_declared(tokens, at):
                functions += self.functions_named(token.value, file, is_member)
                functions += [f for f in self.source.functions if f.name == token.value and f.owner == owner != ""]
                for name in BOUND.get((file, token.value), ()):
                    functions += self.functions_named(name, "", False)
            elif before in ("", "(", ",", "<", "{") and behind in ("", ")", ",", "<", ">", "}"):
                if token.value not in own_names:
                    functions += self.functions_named(token.value, file, False)
            for function in functions:
                if function not in found.functions:
                    found.functions.append(function)
                    names = frozenset(function.parameters) | declared_in(function.body)
                    self.follow(function.body, function.file, function.owner, found, names)
            constant = None if is_member or token.value in own_names else self.constant(token.value, file)
            if constant is not None and constant not in found.constants:
                found.constants.append(constant)
                self.follow(constant.value, constant.file, "", found)


def is_declared(tokens: Tokens, at: int) -> bool:
    """Whether the name there is that of a variable, with its type in front."""
    before = tokens[at - 1] if at > 0 else None
    return before is not None and before.kind == "name" and before.value not in ("return", "else", "case", "do")


def declared_in(body: Tokens) -> frozenset[str]:
    return frozenset(
        token.value for at, token in enumerate(body) if token.kind == "name" and is_declared(body, at)
    )


def joined(found: list[list[str] | None]) -> list[str] | None:
    """All of them, each text once; None where one is not known or there are none."""
    if not found or None in found:
        return None
    return list(dict.fromkeys(itertools.chain.from_iterable(texts or [] for texts in found)))


def escaped(text: str) -> str:
    """So that it stands for itself in a format."""
    return text.replace("%", "%%")


def flat(expressions: list[Tokens]) -> list[str] | None:
    """The literals of a table of nothing but texts."""
    tokens = [token for expression in expressions for token in expression]
    if any(token.kind != "text" and token.value not in ("{", "}", ",") for token in tokens):
        return None
    return [token.value for token in tokens if token.kind == "text"]


def assignments(body: Tokens, name: str) -> list[Tokens]:
    """What a variable of this name is given, at its definition or later."""
    found = []
    for at, token in enumerate(body):
        if token.kind == "name" and token.value == name and (at == 0 or body[at - 1].value not in (".", "->")):
            behind = at + 1
            while behind < len(body) and body[behind].value in ("[", "]"):
                behind += 1
            if behind < len(body) and body[behind] == Token("sign", "=", body[behind].line):
                found.append(up_to_end(body, behind + 1))
    return found


def member_assignments(body: Tokens, name: str) -> list[Tokens]:
    return [
        up_to_end(body, at + 3)
        for at in range(len(body) - 2)
        if body[at].value in (".", "->") and body[at + 1].value == name and body[at + 2].value == "="
    ]


def returned_values(body: Tokens) -> list[Tokens]:
    return [up_to_end(body, at + 1) for at, token in enumerate(body) if token.value == "return"]


def returned_rows(body: Tokens) -> list[list[Tokens]]:
    return [split(between(value, 0)) for value in returned_values(body) if value and value[0].value == "{"]


def up_to_end(body: Tokens, start: int) -> Tokens:
    """Up to the end of the expression."""
    depth = 0
    for at in range(start, len(body)):
        if body[at].kind == "sign":
            depth += (body[at].value in ("(", "{", "[")) - (body[at].value in (")", "}", "]"))
            if depth < 0 or (depth == 0 and body[at].value in (";", ",")):
                return body[start:at]
    return body[start:]
