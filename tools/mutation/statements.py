"""The statements in the functions of a source: as much grammar as removing and swapping them needs."""

from typing import NamedTuple

from mutation.tokens import OPENING

JUMPS = ("return", "break", "continue", "throw", "goto")
SCOPES = ("namespace", "class", "struct", "union")
ACCESS = ("public", "protected", "private")
DECLARATIONS = SCOPES + ("using", "typedef", "static_assert", "static", "constexpr", "auto", "enum", "template", "extern",
                         "const", "unsigned", "signed", "bool", "char", "int", "short", "long", "float", "double")
BEHIND_PARAMETERS = (")", "const", "noexcept", "override", "final", "mutable", "try")


class Statement(NamedTuple):
    kind: str  # expression, declaration or jump
    first: int
    last: int  # the semicolon
    block: int  # the opening brace of the block that it stands in directly; -1 for the only statement of an "if" or a loop
    ends_function: bool


class Statements:
    """Walks through the code once; found[] lists the simple statements, for_heads[] the brackets behind "for"."""

    def __init__(self, source):
        self.source = source
        self.word, self.partners = source.word, source.partners
        self.found, self.for_heads = [], []
        self.declarations(0, len(source.tokens))

    # Outside functions

    def declarations(self, at, end):
        head = at
        while at < end:
            last = self.partners[at] if self.word(at) in OPENING else at
            if self.word(at) == "{":
                head = self.braces(head, at)
            elif self.word(at) == ";" or (self.word(at) == ":" and self.word(at - 1) in ACCESS):
                head = at + 1
            at = last + 1

    def braces(self, head, opening):
        """What the braces behind a declaration's head hold; returns where the head of what follows begins."""
        closing = self.partners[opening]
        if self.is_scope(head, opening):
            self.declarations(opening + 1, closing)
        elif self.is_function_body(head, opening):
            self.body(opening, True)
        else:
            self.lambdas(opening + 1, closing)
            return head
        return closing + 1

    def is_scope(self, head, opening):
        if self.word(head) == "extern" and opening == head + 2:
            return True
        words = self.source.outermost_words(head, opening)
        return any(scope in words for scope in SCOPES) and "(" not in words

    def is_function_body(self, head, opening):
        if self.word(head) == "enum":
            return False
        behind_initializer = self.word(opening - 1) == "}" and self.partners[opening - 1] >= head
        return behind_initializer or self.word(opening - 1) in BEHIND_PARAMETERS or self.is_lambda(opening)

    def is_lambda(self, opening):
        """Whether the brace opens the body of a lambda or of a function that names its result behind its parameters."""
        before = opening - 1
        if self.word(before) == "]":
            return self.opens_lambda(self.partners[before])
        while self.source.kind(before) == "word" or self.word(before) in ("::", "<", ">", "*", "&", ","):
            before -= 1
        if self.word(before) == "->":
            return self.word(before - 1) in BEHIND_PARAMETERS
        return self.word(before) == ")" and self.word(opening - 1) in BEHIND_PARAMETERS and self.word(
            self.partners[before] - 1) == "]"

    def opens_lambda(self, opening):
        return self.source.kind(opening - 1) != "word" and self.word(opening - 1) not in (")", "]") or self.word(
            opening - 1) == "return"

    def lambdas(self, at, end):
        """The bodies of the lambdas inside an expression."""
        while at < end:
            if self.word(at) == "{" and self.is_lambda(at):
                self.body(at, True)
                at = self.partners[at]
            at += 1

    # Inside functions

    def body(self, opening, ends_function=False):
        at, closing = opening + 1, self.partners[opening]
        while at < closing:
            at = self.statement(at, opening, ends_function) + 1

    def statement(self, at, block=-1, ends_function=False):
        """Walks through one statement; returns its last token."""
        while self.word(at) == self.word(at + 1) == "[":  # an attribute
            at = self.partners[at] + 1
        word = self.word(at)
        if word == "{":
            self.body(at)
            return self.partners[at]
        if word in ("if", "for", "while", "switch", "catch"):
            return self.controlled(at)
        if word in ("else", "try"):
            return self.statement(at + 1)
        if word == "do":
            return self.behind_do(self.statement(at + 1))
        if word == "case" or self.word(at + 1) == ":":
            return self.label(at)
        return self.simple(at, block, ends_function)

    def controlled(self, at):
        head = at + 1 if self.word(at + 1) == "(" else at + 2  # if constexpr
        closing = self.partners[head]
        if self.word(at) == "for":
            self.for_heads.append((head, closing))
        self.lambdas(head, closing)
        last = self.statement(closing + 1)
        return self.statement(last + 1) if self.word(last + 1) == "else" else last

    def behind_do(self, last):
        while self.word(last) != ";" or self.word(last - 1) != ")":
            last += 1
        return last

    def label(self, at):
        while self.word(at) != ":":
            at += 1
        return at

    def simple(self, first, block, ends_function):
        last = first
        while self.word(last) != ";":
            last = self.partners[last] + 1 if self.word(last) in OPENING else last + 1
        if self.word(first) in SCOPES:
            self.declarations(first, last)
            return last
        self.lambdas(first, last)
        ends = ends_function and self.word(last + 1) == "}"
        self.found.append(Statement(self.kind(first), first, last, block, ends))
        return last

    def kind(self, first):
        word = self.word(first)
        if word in JUMPS:
            return "jump"
        if word in DECLARATIONS:
            return "declaration"
        if word == "delete" or self.source.kind(first) != "word":
            return "expression"
        return "declaration" if self.names_something(self.source.behind_chain(first)) else "expression"

    def names_something(self, at):
        """Whether what stands behind a type does: a name, or a star or ampersand that hangs on the type."""
        if self.word(at) in ("*", "&", "&&"):
            return not self.source.has_space_before(at)
        return self.source.kind(at) == "word"
