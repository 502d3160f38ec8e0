"""Finds the small changes that can be made in a C++ source: a lexer, the statements, the changes.

It reads sources as clang-format leaves them: a binary operator stands between blanks, the bracket
of a template does not. What it takes for a change and is none does not compile and is passed over.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""(?P<blank>\s+|//[^\n]*|/\*.*?\*/|^\#(?:\\\n|[^\n])*)
      |(?P<text>(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
      |(?P<letter>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
      |(?P<number>\d(?:[\w.']|(?<=[eE])[-+])*)
      |(?P<name>[A-Za-z_]\w*)
      |(?P<operator><<=|>>=|->|::|\+\+|--|&&|\|\||<<|>>|[-+*/%&|^=!<>]=|.)""",
    re.X | re.S | re.M,
)

BINARY = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="],
    ">=": [">", "<"], "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"],
    "%": ["*"], "&": ["|"], "|": ["&"], "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="],
}
UNARY = {"++": ["--"], "--": ["++"], "!": [""]}
NAMES = {
    "true": "false", "false": "true", "qMin": "qMax", "qMax": "qMin", "constFirst": "constLast",
    "constLast": "constFirst", "startsWith": "endsWith", "endsWith": "startsWith",
    "show": "hide", "hide": "show",
}
# What stands in these calls goes into reports that people read, or is for the compiler.
FREE_TEXTS = {"guarded", "guardedOr", "reportCurrentException", "static_assert", "template"}
DECLARATION = re.compile(
    r"(const|constexpr|static|auto|using|struct|class|enum|friend|typedef|union|template)\b"
    r"|(?!return\b|throw\b|delete\b|new\b|else\b|case\b|goto\b|emit\b|Q_EMIT\b)"
    r"[A-Za-z_][\w:]*(<.*>)?[*&]* +[*&]?[A-Za-z_]\w*(\[.*\])? *([=;({]|$)",
    re.S,
)
SETTING = re.compile(r"(?:[\w.()\[\]:]+(?:->|\.))?[sS]et\w+\(")


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclass(frozen=True)
class Change:
    """One change of a file: what stands from start to end becomes `new`."""

    path: str
    line: int
    start: int
    end: int
    new: str
    what: str

    @property
    def name(self):
        """What it is called in equal.txt: without its line, which moves."""
        return f"{self.path}: {self.what}"

    def applied_to(self, source):
        return source[: self.start] + self.new + source[self.end :]

    def __str__(self):
        return f"{self.path}:{self.line}: {self.what}"


@dataclass(frozen=True)
class Statement:
    kind: str  # "call", "return", "jump", "if", "loop", "try", "block", "declaration", "label"
    start: int
    end: int


def tokens_of(source):
    """The tokens of a source without comments, blanks and preprocessor lines."""
    found = (Token(m.lastgroup, m.group(), m.start()) for m in TOKEN.finditer(source))
    return [token for token in found if token.kind != "blank"]


def code_lines(source):
    """The number of lines that hold more than blanks, comments and brackets."""
    lines = {source.count("\n", 0, t.start) for t in tokens_of(source) if t.text not in "{}();"}
    return len(lines)


class Parser:
    """Finds the statements in the bodies of a source's functions."""

    def __init__(self, source):
        self.source = source
        self.tokens = tokens_of(source)
        self.partner = self._brackets()

    def _brackets(self):
        partner, open_at = {}, []
        for i, token in enumerate(self.tokens):
            if token.kind != "operator":
                continue
            if token.text in "({[":
                open_at.append(i)
            elif token.text in ")}]" and open_at:
                partner[open_at.pop()] = i
        return partner

    def text(self, i):
        return self.tokens[i].text if i < len(self.tokens) else ""

    def blocks(self):
        """The statements of every block of code, a list for each block."""
        for i, close in self.partner.items():
            if self.text(i) == "{" and self._holds_code(i):
                statements, at = [], i + 1
                while at < close:
                    statement, at = self._statement(at, close)
                    statements.append(statement)
                yield statements

    def _holds_code(self, i):
        before = self.text(i - 1)
        head = self._head(i)
        if head & {"namespace", "class", "struct", "enum", "union", "extern"}:
            return False
        return before in {")", "const", "noexcept", "override", "else", "do", "try", "mutable", "]"} or (
            "->" in head and self.tokens[i - 1].text in {"*", "&", ">"} | head and before != "="
        )

    def _head(self, i):
        """The tokens before a brace, back to what ends the statement before it."""
        head = set()
        for token in reversed(self.tokens[max(0, i - 12) : i]):
            if token.text in {";", "{", "}", ","} or token.kind == "text":
                break
            head.add(token.text)
        return head

    def _statement(self, at, close):
        first = self.text(at)
        if first in {"if", "for", "while", "switch"}:
            return self._control(at, close, "if" if first == "if" else "loop")
        if first in {"do", "try"}:
            return self._until(at, close, "try")
        if first == "{":
            return self._made("block", at, self.partner[at])
        if first in {"case", "default"} or first in {"public", "private"}:
            end = next(i for i in range(at, close) if self.text(i) == ":")
            return self._made("label", at, end)
        end = self._semicolon(at, close)
        if first == "return":
            return self._made("return" if end > at + 1 else "jump", at, end)
        if first in {"break", "continue", "throw"}:
            return self._made("jump", at, end)
        code = self.source[self.tokens[at].start : self.tokens[end].end]
        return self._made("declaration" if DECLARATION.match(code) else "call", at, end)

    def _control(self, at, close, kind):
        bracket = next(i for i in range(at, close) if self.text(i) == "(")
        _, end = self._statement(self.partner[bracket] + 1, close)
        if self.text(end) == "else" and kind == "if":
            _, end = self._statement(end + 1, close)
            kind = "choice"
        return self._made(kind, at, end - 1)

    def _until(self, at, close, kind):
        end = self.partner[at + 1]
        while self.text(end + 1) in {"catch", "while"} and end + 1 < close:
            _, after = self._control(end + 1, close, "loop")
            end = after - 1
        return self._made(kind, at, end)

    def _semicolon(self, at, close):
        while at < close and self.text(at) != ";":
            at = self.partner.get(at, at) + 1
        return min(at, close - 1)

    def _made(self, kind, first, last):
        return Statement(kind, self.tokens[first].start, self.tokens[last].end), last + 1


class Finder:
    """Collects the changes of one source."""

    def __init__(self, path, source):
        self.path = path
        self.source = source
        self.parser = Parser(source)
        self.tokens = self.parser.tokens
        self.changes = []

    def find(self):
        free = self._free_tokens()
        for i, token in enumerate(self.tokens):
            if i not in free:
                self._change_token(i, token)
        for statements in self.parser.blocks():
            for statement in statements:
                self._delete(statement)
            for first, second in zip(statements, statements[1:]):
                self._swap(first, second)
        return self.changes

    def _free_tokens(self):
        free = set()
        for i, token in enumerate(self.tokens):
            if token.text == "operator":
                free.add(i + 1)
            if token.text not in FREE_TEXTS:
                continue
            end = i
            while end < len(self.tokens) and self.tokens[end].text not in {"[", ";", "{"}:
                free.add(end)
                end += 1
        return free

    def _add(self, start, end, new, what=None):
        old = self.source[start:end]
        line = self.source.count("\n", 0, start) + 1
        shown = what or f"{old} → {new or 'nothing'}"
        self.changes.append(Change(self.path, line, start, end, new, shown))

    def _in_context(self, token, new):
        line_start = self.source.rfind("\n", 0, token.start) + 1
        line = self.source[line_start : self.source.find("\n", token.end)].strip()
        self._add(token.start, token.end, new, f"{token.text} → {new or 'nothing'} in “{line}”")

    def _change_token(self, i, token):
        source = self.source
        spaced = source[token.start - 1] == " " and source[token.end : token.end + 1] in {" ", "\n"}
        if token.kind == "text":
            self._in_context(token, token.text[:-1] + '~"')
        elif token.kind == "letter":
            self._in_context(token, re.sub(r"'.*'", "'~'", token.text, flags=re.S))
        elif token.kind == "number":
            self._in_context(token, changed_number(token.text))
        elif token.kind == "name":
            self._change_name(i, token)
        elif token.text in BINARY and (spaced or token.text not in "<>&&*|+-"):
            for new in BINARY[token.text] if spaced else []:
                self._in_context(token, new)
        elif token.text in UNARY:
            for new in UNARY[token.text]:
                self._in_context(token, new)

    def _change_name(self, i, token):
        if token.text in NAMES:
            self._in_context(token, NAMES[token.text])
        if token.text in {"if", "while"} and self.parser.text(i + 1) == "(":
            close = self.tokens[self.parser.partner[i + 1]]
            condition = self.source[self.tokens[i + 1].end : close.start]
            start = self.tokens[i + 1].end
            flat = " ".join(condition.split())
            what = f"{token.text} ({flat}) → {token.text} (!({flat}))"
            self._add(start, close.start, f"!({condition})", what)

    def _delete(self, statement):
        if statement.kind not in {"call", "jump", "if", "loop"}:
            return
        flat = shortened(self.source[statement.start : statement.end])
        self._add(statement.start, statement.end, ";", f"deleted: {flat}")

    def _swap(self, first, second):
        kinds = {first.kind, second.kind}
        if not kinds <= {"call", "if"}:
            return
        a = self.source[first.start : first.end]
        b = self.source[second.start : second.end]
        # Two settings of one widget: their order is a matter of taste.
        if SETTING.match(a) and SETTING.match(b):
            return
        between = self.source[first.end : second.start]
        what = f"swapped: {shortened(a)} ↔ {shortened(b)}"
        self._add(first.start, second.end, b + between + a, what)


def changed_number(text):
    """The number after this one: 5 → 6, 1.5 → 2.5, 0x0f → 0x0f + 1."""
    plain = text.replace("'", "")
    if re.fullmatch(r"\d+", plain):
        return str(int(plain) + 1)
    if re.fullmatch(r"\d+\.\d*", plain):
        return str(float(plain) + 1)
    return f"({text} + 1)"


def shortened(code, length=90):
    flat = " ".join(code.split())
    return flat if len(flat) <= length else flat[: length - 1] + "…"


def changes_of(path, source):
    """All changes of a source. `path` is what their descriptions name."""
    return Finder(path, source).find()
