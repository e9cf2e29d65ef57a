"""C++ source as tokens: where code stands, and what is comment, text, directive or space around it."""

import re
from typing import NamedTuple

PATTERN = re.compile(
    r"""(?P<space>\s+)
      | (?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>\#(?:[^\\\n]|\\.)*)
      | (?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:[^"\\]|\\.)*")
      | (?P<character>(?:u8|[uUL])?'(?:[^'\\]|\\.)+')
      | (?P<number>\.?\d(?:[eE][+-]\d|'?\w|\.)*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><=>|<<=|>>=|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)""",
    re.VERBOSE | re.DOTALL,
)
BESIDE_CODE = ("space", "comment", "directive")
OPENING = {"(": ")", "[": "]", "{": "}"}


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


def code_of(text):
    """The tokens of the code proper."""
    found = (Token(m.lastgroup, m.group(), m.start(), m.end()) for m in PATTERN.finditer(text))
    return [token for token in found if token.kind not in BESIDE_CODE]


def partners_of(tokens):
    """The index of every bracket's partner, in both directions."""
    partners, waiting = {}, []
    for index, token in enumerate(tokens):
        if token.text in OPENING:
            waiting.append(index)
        elif token.text in OPENING.values():
            opening = waiting.pop()
            partners[opening], partners[index] = index, opening
    if waiting:
        raise ValueError("a bracket is not closed")
    return partners


class Source:
    """A file's code. Its layout is clang-format's: an operator between two operands has space on both sides, the
    brackets of a template, a pointer's star and a sign have not."""

    def __init__(self, path, text):
        self.path, self.text = path, text
        self.tokens = code_of(text)
        self.partners = partners_of(self.tokens)

    def word(self, index):
        """The token's text; nothing before the first and behind the last."""
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def kind(self, index):
        return self.tokens[index].kind if 0 <= index < len(self.tokens) else ""

    def has_space_before(self, index):
        return index > 0 and self.tokens[index - 1].end < self.tokens[index].start

    def has_space_behind(self, index):
        return index + 1 < len(self.tokens) and self.has_space_before(index + 1)

    def stands_between(self, index):
        return self.has_space_before(index) and self.has_space_behind(index)

    def behind_template(self, index):
        """The index behind the template arguments that begin here, or the same index when none do."""
        if self.word(index) != "<" or self.has_space_behind(index):
            return index
        depth, at = 0, index
        while at < len(self.tokens) and self.word(at) != ";":
            depth += {"<": 1, ">": -1, ">>": -2}.get(self.word(at), 0)
            at = self.partners.get(at, at) + 1 if self.word(at) in OPENING else at + 1
            if depth <= 0:
                return at
        return index

    def behind_chain(self, at):
        """The index behind a chain like a::b<c>(d)[e].f->g."""
        while True:
            behind = self.behind_template(at + 1)
            if self.word(at) in ("(", "[", "{"):
                behind = self.partners[at] + 1
            elif self.kind(at) != "word" and self.word(at) not in ("::", ".", "->"):
                return at
            if self.kind(behind) == "word" and self.word(at) not in ("::", ".", "->"):
                return behind
            at = behind

    def outermost_words(self, at, end):
        words = []
        while at < end:
            words.append(self.word(at))
            at = self.partners[at] if self.word(at) in OPENING else at
            at = max(at + 1, self.behind_template(at + 1))
        return words
