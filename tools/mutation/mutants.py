"""The mutants of a source: each is one small change of it that a good test would notice."""

import re
from typing import NamedTuple

from mutation.statements import DECLARATIONS, Statements

BETWEEN_OPERANDS = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
    "+": "-", "-": "+", "*": "+", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "*=": "+=", "/=": "*=",
    "<<": ">>", ">>": "<<", "<<=": ">>=", ">>=": "<<=", "&": "|", "|": "&", "^": "|", "&=": "|=", "|=": "&=", "^=": "|=",
    "&&": "||", "||": "&&",
}
BEFORE_OPERAND = ("!", "-", "~")
STEPS = {"++": "--", "--": "++"}
OPPOSITES = {"true": "false", "True": "False", "TRUE": "FALSE", "VARIANT_TRUE": "VARIANT_FALSE", "min": "max"}
OPPOSITES.update({word: opposite for opposite, word in OPPOSITES.items()})
CHECKS = ("asm", "static_assert", "assert", "alignas", "sizeof", "decltype")
WHOLE = re.compile(r"(0[xX])?([\da-fA-F']+?)([uUlLzZ]*)")
FRACTION = re.compile(r"(\d+)(\..*)")


class Mutant(NamedTuple):
    path: str
    line: int  # the first it changes
    start: int
    end: int
    after: str
    diff: str  # the line, [-before-]{+after+}


def mutants_of(source, enumerators):
    """All mutants of the source in the order of their places. enumerators: see enumerators_of."""
    changes = list(token_changes(source, enumerators)) + list(statement_changes(source))
    return [mutant(source, *change) for change in sorted(set(changes))]


def mutant(source, start, end, after):
    text = source.text
    line_start, line_end = text.rfind("\n", 0, start) + 1, text.find("\n", end)
    parts = [text[line_start:start], "[-", text[start:end], "-]{+", after, "+}", text[end:line_end]]
    diff = re.sub(r"\s+", " ", "".join(parts)).strip()
    return Mutant(source.path, text.count("\n", 0, start) + 1, start, end, after, diff)


# Tokens

def token_changes(source, enumerators):
    statements = Statements(source)
    checked = spans_of_checks(source)
    for index, token in enumerate(source.tokens):
        if any(first < index < last for first, last in checked) or source.word(index - 1) == "operator":
            continue
        for after in replacements(source, statements, enumerators, index):
            yield token.start, token.end, after


def spans_of_checks(source):
    return [(index, source.partners[index + 1]) for index, token in enumerate(source.tokens)
            if token.text in CHECKS and source.word(index + 1) == "("]


def replacements(source, statements, enumerators, index):
    kind, word = source.kind(index), source.word(index)
    if kind == "number" and not is_pure(source, index):
        yield from next_number(word)
    elif kind == "word" and word in OPPOSITES and not is_being_named(source, index):
        yield OPPOSITES[word]
    elif kind == "word" and word in enumerators:
        yield from next_enumerator(source, enumerators, index)
    elif kind == "sign":
        yield from other_sign(source, statements, index)


def is_pure(source, index):
    """Whether the number is the 0 of "= 0;", which leaves a virtual function without a body."""
    return source.word(index - 1) == "=" and source.word(index - 2) in (")", "const", "noexcept", "override")


def is_being_named(source, index):
    if source.word(index) in ("min", "max"):
        return source.word(index - 1) != "::"
    return source.word(index + 1) == "="


def next_number(word):
    whole, fraction = WHOLE.fullmatch(word), FRACTION.fullmatch(word)
    if whole:
        prefix, digits, suffix = whole.groups()
        number = int(digits.replace("'", ""), 16 if prefix else 10) + 1
        yield (f"{prefix}{number:X}" if prefix else str(number)) + suffix
    elif fraction:
        yield str(int(fraction[1]) + 1) + fraction[2]


def next_enumerator(source, enumerators, index):
    """The next enumerator of the same enumeration, where one is used."""
    word, qualifier = source.word(index), source.word(index - 2) if source.word(index - 1) == "::" else ""
    if source.word(index - 1) in ("case", ".", "->") or source.word(index - 3) == "case" and qualifier:
        return
    for enumeration, is_scoped, names in enumerators[word]:
        if qualifier == enumeration if is_scoped or qualifier else not is_inside_enumeration(source, index):
            yield names[(names.index(word) + 1) % len(names)]


def is_inside_enumeration(source, index):
    return any(first < index < last for first, last in enumerations_of(source))


def other_sign(source, statements, index):
    word = source.word(index)
    if word in BETWEEN_OPERANDS and source.stands_between(index):
        yield BETWEEN_OPERANDS[word]
    elif word in BEFORE_OPERAND and is_before_operand(source, index):
        yield ""
    elif word in STEPS and not any(first < index < last for first, last in statements.for_heads):
        yield STEPS[word]


def is_before_operand(source, index):
    before = source.word(index - 1)
    behind_operand = source.kind(index - 1) in ("word", "number", "text") and before not in ("return", "case")
    names_destructor = source.word(index) == "~" and before in (";", "{", "}", ":", "::", ".", "->")
    return not (behind_operand or names_destructor or before in (")", "]") or source.has_space_behind(index))


# Enumerations

def enumerations_of(source):
    """The spans of the braces behind "enum"."""
    for index, token in enumerate(source.tokens):
        opening = index
        while token.text == "enum" and source.word(opening) not in ("{", ";"):
            opening += 1
        if source.word(opening) == "{" and token.text == "enum":
            yield opening, source.partners[opening]


def enumerators_of(sources):
    """For each enumerator of the sources the enumerations that it belongs to: (name, is it scoped, enumerators)."""
    found = {}
    for source in sources:
        for opening, closing in enumerations_of(source):
            names = [source.word(i) for i in range(opening + 1, closing)
                     if source.kind(i) == "word" and source.word(i - 1) in ("{", ",")]
            for name in names if len(names) > 1 else ():
                found.setdefault(name, []).append((*name_of_enumeration(source, opening), tuple(names)))
    return found


def name_of_enumeration(source, opening):
    head = opening
    while source.word(head) != "enum":
        head -= 1
    is_scoped = source.word(head + 1) in ("class", "struct")
    return source.word(head + 2 if is_scoped else head + 1), is_scoped


# Statements

def statement_changes(source):
    found = Statements(source).found
    for statement in found:
        if can_be_removed(source, statement):
            yield source.tokens[statement.first].start, source.tokens[statement.last].end, "{}"
    for one, other in zip(found, found[1:]):
        if can_be_swapped(source, one, other):
            yield swapped(source, one, other)


def can_be_removed(source, statement):
    if statement.kind == "declaration":
        return is_guard(source, statement)
    if statement.kind == "jump":
        return not statement.ends_function and source.word(statement.last + 1) not in ("case", "default")
    return not is_without_effect(source, statement)


def is_without_effect(source, statement):
    """A check, or an argument said to be unused on purpose."""
    first = statement.first
    unused = source.word(first) == "static_cast" and source.word(first + 2) == "void" and statement.last == first + 7
    return source.word(first) in CHECKS or unused


def is_guard(source, statement):
    """Whether the declared object is never named again: it is there for what its constructor and destructor do."""
    first = statement.first + (source.word(statement.first) == "const")
    name = source.behind_chain(first)
    if source.word(first) in DECLARATIONS or source.word(name + 1) not in ("(", "{") or statement.block < 0:
        return False
    rest = range(statement.last + 1, source.partners[statement.block])
    return all(source.word(index) != source.word(name) for index in rest)


def can_be_swapped(source, one, other):
    """Two assignments are left alone: their order seldom matters."""
    both = one.kind == other.kind == "expression" and one.block == other.block
    return both and one.block >= 0 and other.first == one.last + 1 and (is_call(source, one) or is_call(source, other))


def is_call(source, statement):
    return source.word(statement.last - 1) == ")" and "=" not in source.outermost_words(statement.first, statement.last)


def swapped(source, one, other):
    places = [source.tokens[i] for i in (one.first, one.last, other.first, other.last)]
    start, middle, behind, end = places[0].start, places[1].end, places[2].start, places[3].end
    return start, end, source.text[behind:end] + source.text[middle:behind] + source.text[start:middle]
