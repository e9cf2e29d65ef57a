"""What the control's property table says: values at first, and what assigning sets off."""

import dataclasses
import re


@dataclasses.dataclass(frozen=True)
class Property:
    default: str  # None where the control holds an object
    effect: str   # the name in the table


def read_properties(header, table):
    fields = dict(re.findall(r"^    (?:std::\w+|Boolean) (\w+)(?: = (.+?))?;$", header, re.M))
    rows = re.findall(r'^    \{u"(\w+)", \w+, (\w+), ', table, re.M)
    return {name: Property(shown(fields.get(name)), effect) for name, effect in rows}


def shown(value):
    """A value of C++ as the reference shows it."""
    if value is None:
        return None
    text = re.fullmatch(r'u"(.*)"', value)
    return '"' + text[1].replace("\\\\", "\\") + '"' if text else value or '""'
