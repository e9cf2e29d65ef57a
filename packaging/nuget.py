"""The NuGet package: an archive of a form of its own around the control of both processors, for C++ projects."""

import checkout
import contents

PLATFORMS = {"Win32": "x86", "x64": "x64"}  # as C++ projects call the processors

TYPES = """<?xml version="1.0" encoding="utf-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
  <Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
{types}
</Types>
"""

RELATIONSHIPS = """<?xml version="1.0" encoding="utf-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
  <Relationship Type="http://schemas.microsoft.com/packaging/2010/07/manifest" Target="/VantikFrameTab.nuspec" Id="manifest"/>
</Relationships>
"""


def types(names):
    extensions = sorted({name.rpartition(".")[2] for name in names})
    row = '  <Default Extension="{}" ContentType="application/octet"/>'
    return TYPES.format(types="\n".join(map(row.format, extensions)))


def versioned(name, version):
    return checkout.text(name).replace("@VERSION@", version).encode("utf-8")


def files(version, builds, packed):
    """The bytes by their names. packed: those of the zip."""
    made = {
        "VantikFrameTab.nuspec": versioned("packaging/nuget/VantikFrameTab.nuspec", version),
        "build/native/VantikFrameTab.targets": versioned("packaging/nuget/VantikFrameTab.targets", version),
    }
    for platform, processor in PLATFORMS.items():
        for name, data in contents.control(builds[processor]).items():
            made[f"build/native/{platform}/{name}"] = data
    for name in ("include/VantikFrameTabProject.h", "include/VantikFrameTabProject_i.c"):
        made[f"build/native/{name}"] = packed[name]
    for name in ("LICENSE.txt", "NOTICES.txt"):
        made[name] = packed[name]
    made["[Content_Types].xml"] = types(made).encode("utf-8")
    made["_rels/.rels"] = RELATIONSHIPS.encode("utf-8")
    return made
