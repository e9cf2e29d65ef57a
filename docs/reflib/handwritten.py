"""The hand-written part of the reference: entries of text and of fields, "- name: text".

A field's text may go on in lines that begin with two blanks. What stands behind the last ": " of an error's field in
backticks is a statement that raises it.
"""

import dataclasses
import re


class Fault(Exception):
    """What keeps the page from being made."""


@dataclasses.dataclass(frozen=True)
class Error:
    number: str
    when: str
    statement: str  # None where no single statement of a script raises it


@dataclasses.dataclass
class Entry:
    name: str
    text: str
    fields: dict  # by name; those of arguments by "argument NAME"
    errors: list

    def take(self, name):
        """A field that has to be there."""
        if name not in self.fields:
            raise Fault(f"{self.name} says nothing of: {name}")
        return self.fields.pop(name)

    @property
    def statement(self):
        """The example, where a test can run it."""
        whole = re.fullmatch(r"`([^`]+)`", self.fields.get("example", ""))
        return whole and whole[1]


FIELD = re.compile(r"^- (\w+(?: \w+)?): (.*\n(?:  .*\n)*)", re.M)
ERROR_FIELD = re.compile(r"^- error (\d+(?:, \d+)*(?: or \d+)?): (.*\n(?:  .*\n)*)", re.M)


def read_entries(text):
    """The text before the first entry, and the entries by name."""
    before, *parts = re.split(r"^## (.+)\n", text + "\n", flags=re.M)
    entries = {}
    for name, body in zip(parts[::2], parts[1::2]):
        if name in entries:
            raise Fault(f"{name} is described twice")
        entries[name] = entry_of(name, body)
    return before.strip(), entries


def entry_of(name, body):
    errors = [error_of(number, one_line(text)) for number, text in ERROR_FIELD.findall(body)]
    body = ERROR_FIELD.sub("", body)
    fields = {field: one_line(text) for field, text in FIELD.findall(body)}
    return Entry(name, re.sub(r"\n{3,}", "\n\n", FIELD.sub("", body)).strip(), fields, errors)


def error_of(number, text):
    stated = re.fullmatch(r"(.*): `([^`]+)`", text)
    return Error(number, *(stated.groups() if stated else (text, None)))


def one_line(text):
    return re.sub(r"\s+", " ", text).strip()
