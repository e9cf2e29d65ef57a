"""The reference as a page of Markdown."""

from reflib.handwritten import Fault

HEAD = """# Reference

<!-- Made by docs/make-reference from idl/VantikFrameTab.idl, idl/reference and src/model/Properties.*: change these. -->

"""

EFFECTS = {
    "None": "nothing is repainted",
    "RepaintAll": "repaints everything",
    "RedrawBars": "redraws the bars",
    "RepaintFrameThenBars": "repaints the page's frame as it was laid out last, then the bars",
    "ReleaseCloseButtonThenRedrawBars": "draws the close buttons anew, with the bars",
}
OWN_EFFECT = "OwnRoutine"  # the table leaves it to the hand-written part
RAISING = {"RepaintAll": "A full repaint", "RedrawBars": "A repaint of the bars",
           "RepaintFrameThenBars": "A full repaint, A repaint of the bars",
           "ReleaseCloseButtonThenRedrawBars": "A repaint of the bars"}
EVERY_CALL = "Every call"

UNITLESS = ("BSTR", "VARIANT_BOOL")


def link(name, text=None):
    return f"[{text or name}](#{name.lower().replace(' ', '-')})"


def paragraphs(*texts):
    return "\n\n".join(text for text in texts if text) + "\n\n"


def code(language, lines):
    return "\n".join([f"```{language}", *lines, "```"])


def facts(rows):
    return "\n".join(f"- **{name}:** {text}" for name, text in rows if text)


def summary(entry):
    """What the entry says first, for a table."""
    return (entry.text.split("\n\n")[0] or entry.fields.get("returns", "")).replace("\n", " ")


def help_text(member, entry):
    """The library's own, with a translation where it is not English."""
    text = member.first.help
    if text.isascii():
        return text
    return f"{text} ({entry.take('translation')})"


def error_texts(entry):
    return [f"{error.number}: {error.when}" + (f" (`{error.statement}`)" if error.statement else "")
            for error in entry.errors]


def those_of(group):
    return "those of " + link(group, group[0].lower() + group[1:])


class Page:
    def __init__(self, types, properties, sources):
        self.types, self.properties, self.sources = types, properties, sources
        self.known_errors = sources["errors"][1]

    def text(self):
        return HEAD + "".join([
            paragraphs(self.sources["introduction"][0]),
            self.members("Tabs", "tabs"),
            self.members("Properties", "properties"),
            self.free("Captions", "captions"),
            self.members("Other members", "other"),
            self.events(),
            self.enumerations(),
            self.free("Keyboard and wheel", "keyboard"),
            self.free("Verbs", "verbs"),
            self.errors(),
        ]).rstrip() + "\n"

    def free(self, heading, name):
        return paragraphs(f"## {heading}", self.sources[name][0])

    def section(self, heading, name, table, parts):
        return paragraphs(f"## {heading}", self.sources[name][0], table) + "".join(parts)

    # Members of the interface.

    def members(self, heading, name):
        entries = self.sources[name][1]
        chosen = [member for member in self.types.members.values() if member.name in entries]
        rows = [self.row(member, entries[member.name]) for member in chosen]
        table = "\n".join(["| Member | Default | |", "|---|---|---|", *rows])
        return self.section(heading, name, table, [self.member(m, entries[m.name]) for m in chosen])

    def row(self, member, entry):
        default = self.default(member, entry)
        return f"| {link(member.name)} | {default} | {summary(entry)} |"

    def default(self, member, entry):
        if not member.is_property:
            return ""
        default = self.properties[member.name].default
        return entry.fields.get("default", "") if default is None else f"`{default}`"

    def member(self, member, entry):
        first, *rest = entry.text.split("\n\n") if entry.text else [""]
        lines = [member.basic, *map(self.declared, member.declarations)]
        rows = self.property_rows(member, entry) if member.is_property else self.method_rows(member, entry)
        rows += [("Help text", help_text(member, entry))]
        if not member.is_hidden:
            rows += [("Example", entry.take("example"))]
        self.nothing_is_left(entry)
        return paragraphs(f"### {member.name}", code("text", lines), first, facts(rows), *rest)

    @staticmethod
    def declared(declaration):
        kind = "".join(f", {flag}" for flag in declaration.flags if flag.startswith("prop"))
        return f"[id({declaration.number}){kind}] {declaration.text}"

    # An object has its first value from elsewhere; all others from the table.
    def property_rows(self, member, entry):
        known = self.properties[member.name]
        default = self.default(member, entry)
        if known.default is None:
            entry.take("default")
        is_own = known.effect == OWN_EFFECT
        effect = entry.take("effect") if is_own else EFFECTS[known.effect]
        groups = entry.fields.pop("errors of", "") if is_own else RAISING.get(known.effect, "")
        return [("Default", default), ("Unit", self.unit(member, entry)), ("Assigning it", effect),
                ("Errors", self.errors_of(entry, groups))]

    def unit(self, member, entry):
        """None for what is no quantity; texts may say what they hold."""
        kind = member.result
        if kind in self.types.enumerations:
            return f"one of {link(kind)}"
        return entry.fields.pop("unit", None) if kind in UNITLESS or kind.startswith("I") else entry.take("unit")

    def method_rows(self, member, entry):
        rows = self.argument_rows(member, entry)
        if member.result:
            rows.append(("Returns", entry.take("returns")))
        return rows + [("Effect", entry.take("effect")),
                       ("Errors", self.errors_of(entry, entry.fields.pop("errors of", "")))]

    @staticmethod
    def argument_rows(member, entry):
        return [(f"`{argument.name}`", entry.take(f"argument {argument.name}")) for argument in member.arguments]

    def errors_of(self, entry, groups):
        named = groups.split(", ") if groups else []
        for group in named:
            if group not in self.known_errors:
                raise Fault(f"{entry.name} names errors that are not described: {group}")
        texts = error_texts(entry) + [those_of(group) for group in named]
        return "; ".join(texts + ["and " + those_of(EVERY_CALL)]) if texts else "only " + those_of(EVERY_CALL)

    @staticmethod
    def nothing_is_left(entry):
        if entry.fields:
            raise Fault(f"{entry.name} says what nobody asks: {', '.join(entry.fields)}")

    # The rest.

    def events(self):
        entries = self.sources["events"][1]
        rows = [f"| {member.first.number} | {link(name)} | {summary(entries[name])} |"
                for name, member in self.types.events.items()]
        table = "\n".join(["| DISPID | Event | When |", "|---|---|---|", *rows])
        return self.section("Events", "events", table,
                            [self.event(member, entries[name]) for name, member in self.types.events.items()])

    def event(self, member, entry):
        if member.handler not in entry.text:
            raise Fault(f"{member.name} has no example that begins with: {member.handler}")
        rows = self.argument_rows(member, entry) + [("Help text", help_text(member, entry))]
        self.nothing_is_left(entry)
        first, *rest = entry.text.split("\n\n")
        lines = [member.event, self.declared(member.first)]
        return paragraphs(f"### {member.name}", code("text", lines), first, facts(rows), *rest)

    def enumerations(self):
        entries = self.sources["enumerations"][1]
        return self.section("Enumerations", "enumerations", "",
                            [self.enumeration(each, entries[each.name]) for each in self.types.enumerations.values()])

    @staticmethod
    def enumeration(enumeration, entry):
        rows = [f"| {value} | `{constant}` |" for constant, value in enumeration.constants]
        return paragraphs(f"### {enumeration.name}", entry.text, facts([("Help text", enumeration.help)]),
                          "\n".join(["| Value | Constant |", "|---|---|", *rows]))

    def errors(self):
        text, groups = self.sources["errors"]
        return self.section("Errors", "errors", "", [self.group(entry) for entry in groups.values()])

    @staticmethod
    def group(entry):
        first, *rest = entry.text.split("\n\n") if entry.text else [""]
        return paragraphs(f"### {entry.name}", first, "\n".join(f"- {text}" for text in error_texts(entry)), *rest)
