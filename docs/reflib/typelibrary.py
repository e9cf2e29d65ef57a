"""The type library's source: its members, events and enumerations."""

import dataclasses
import re

BASIC = {"short": "Integer", "long": "Long", "BSTR": "String", "VARIANT_BOOL": "Boolean"}


@dataclasses.dataclass(frozen=True)
class Argument:
    flags: tuple
    type: str
    name: str

    @property
    def value_type(self):
        return self.type.rstrip("*")

    @property
    def is_result(self):
        return "retval" in self.flags

    @property
    def basic(self):
        way = "ByRef" if "out" in self.flags else "ByVal"
        text = f"{way} {self.name} As {basic_type(self.value_type)}"
        return f"[{text}]" if "optional" in self.flags else text


@dataclasses.dataclass(frozen=True)
class Declaration:
    """One line of the library: a method, an event, or one way to use a property."""

    text: str
    number: int
    flags: tuple
    help: str
    name: str
    arguments: tuple


@dataclasses.dataclass
class Member:
    name: str
    declarations: list

    @property
    def first(self):
        return self.declarations[0]

    @property
    def is_property(self):
        return any(flag.startswith("prop") for flag in self.first.flags)

    @property
    def is_hidden(self):
        return "hidden" in self.first.flags

    @property
    def arguments(self):
        return [argument for argument in self.first.arguments if not argument.is_result]

    @property
    def result(self):
        return next((argument.value_type for argument in self.first.arguments if argument.is_result), None)

    @property
    def basic(self):
        """As a Basic language declares it."""
        if self.is_property:
            return f"Property {self.name} As {basic_type(self.result)}"
        arguments = ", ".join(argument.basic for argument in self.arguments)
        if self.result:
            return f"Function {self.name}({arguments}) As {basic_type(self.result)}"
        return f"Sub {self.name}({arguments})"

    @property
    def event(self):
        return f"Event {self.name}({', '.join(argument.basic for argument in self.arguments)})"

    @property
    def handler(self):
        """The first line of an event's handler."""
        return f"Private Sub VantikFrameTab1_{self.event.removeprefix('Event ').replace('ByRef ', '')}"


@dataclasses.dataclass(frozen=True)
class Enumeration:
    name: str
    help: str
    constants: tuple  # of (name, value)


@dataclasses.dataclass
class Library:
    members: dict
    events: dict
    enumerations: dict


def basic_type(name):
    return BASIC.get(name, name)


def read_library(text):
    text = re.sub(r"//.*", "", text)
    interface, events = re.search(
        r"interface _VantikFrameTab(.*?)dispinterface __VantikFrameTab(.*?)coclass", text, re.S).groups()
    return Library(members_of(interface), members_of(events), enumerations_of(text))


def enumerations_of(text):
    found = re.findall(r'helpstring\("([^"]*)"\)\]\s*typedef enum (\w+) \{(.*?)\}', text)
    return {name: Enumeration(name, help_text, tuple(re.findall(r"(\w+) = (\d+)", constants)))
            for help_text, name, constants in found}


def members_of(text):
    members = {}
    for match in re.finditer(r"\[id\((\w+)\)(.*?)\]\s*((?:HRESULT|void)\s+(\w+)\((.*?)\);)", text, re.S):
        declaration = declaration_of(*match.groups())
        members.setdefault(declaration.name, Member(declaration.name, [])).declarations.append(declaration)
    return members


def declaration_of(number, attributes, text, name, arguments):
    help_text = re.search(r'helpstring\("((?:[^"\\]|\\.)*)"\)', attributes)
    flags = re.findall(r"\b(prop\w+|hidden)\b", attributes.replace(help_text[0], ""))
    return Declaration(re.sub(r"\s+", " ", text), signed(int(number, 0)), tuple(flags),
                       help_text[1].replace('\\"', '"'), name, tuple(arguments_of(arguments)))


def signed(number):
    return number - (1 << 32) if number >> 31 else number


def arguments_of(text):
    for flags, kind, name in re.findall(r"\[([^\]]*)\]\s*([\w*]+)\s+(\w+)", text):
        yield Argument(tuple(flag.strip() for flag in flags.split(",")), kind, name)
