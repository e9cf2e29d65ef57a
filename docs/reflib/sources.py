"""Reads what the page is made of, and sees that everything is described once."""

from reflib.handwritten import Fault, read_entries
from reflib.typelibrary import read_library
from reflib.page import EFFECTS, OWN_EFFECT, Page
from reflib.properties import read_properties

MEMBERS = ("tabs", "properties", "other")
OTHERS = ("introduction", "captions", "events", "enumerations", "keyboard", "verbs", "errors")


def make_page(root):
    def read(path):
        return (root / path).read_text(encoding="utf-8")

    types = read_library(read("idl/VantikFrameTab.idl"))
    properties = read_properties(read("src/model/Properties.h"), read("src/model/Properties.cpp"))
    check_table(types, properties)
    sources = read_sources(root)
    check_names("member", types.members, sum((list(sources[name][1]) for name in MEMBERS), []))
    check_names("event", types.events, sources["events"][1])
    check_names("enumeration", types.enumerations, sources["enumerations"][1])
    return Page(types, properties, sources).text()


def read_sources(root):
    return {name: read_entries((root / f"idl/reference/{name}.md").read_text(encoding="utf-8"))
            for name in MEMBERS + OTHERS}


def check_table(types, properties):
    for member in types.members.values():
        if member.is_property and member.name not in properties:
            raise Fault(f"the property table has no {member.name}")
    for name, row in properties.items():
        if row.effect not in EFFECTS and row.effect != OWN_EFFECT:
            raise Fault(f"{name} has an effect that the reference has no words for: {row.effect}")


def check_names(what, declared, described):
    described = list(described)
    for name in declared:
        if described.count(name) != 1:
            raise Fault(f"the {what} {name} is described {described.count(name)} times in idl/reference")
    for name in described:
        if name not in declared:
            raise Fault(f"idl/reference describes a {what} that there is not: {name}")
