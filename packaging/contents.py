"""What goes into the zip and onto the disk of those who install it, and where it stands there. What is built is taken from
the build trees of both processors: builds, by the processors' names."""

import checkout
import documents

def windows_text(text):
    """For the oldest editors of the oldest systems."""
    return text.replace("\n", "\r\n").encode("utf-8")


def control(build):
    """What a program needs beside it."""
    return {name: (build / "src/ole" / name).read_bytes() for name in ("VantikFrameTab.ocx", "VantikFrameTab.manifest")}


def libraries(builds):
    for processor, build in builds.items():
        for name, data in control(build).items():
            yield f"{processor}/{name}", data
        yield f"{processor}/VantikFrameTab.tlb", (build / "idl/VantikFrameTab.tlb").read_bytes()


def headers(builds):
    """They are the same for both processors."""
    made = builds["x86"] / "idl"
    yield "include/VantikFrameTabProject.h", (made / "include/VantikFrameTabProject.h").read_bytes()
    yield "include/VantikFrameTabProject_i.c", (made / "VantikFrameTabProject_i.cpp").read_bytes()


def moved(folder, to):
    """The project's files of a folder, in another one; what is for git alone stays."""
    for name in checkout.tracked(folder):
        if not name.endswith("/.gitattributes"):
            yield to + name.removeprefix(folder), name


def sources():
    """Where files of the checkout stand, as they are."""
    yield from moved("skins", "skins")
    yield from moved("resources/skin", "skins/built-in")
    yield "icons/icons.svg", "resources/art/skins/icons.svg"
    for target, name in moved("samples", "samples"):
        if not name.endswith("CMakeLists.txt"):  # part of the build of the whole project
            yield target, name
    yield from moved("docs/img", "docs/img")


def programs(builds):
    """The samples that were built, each with the control and its skin beside it."""
    for processor, build in builds.items():
        for program in sorted((build / "samples").glob("*/*.exe")):
            folder = f"samples/{program.parent.name}/{processor}"
            yield f"{folder}/{program.name}", program.read_bytes()
            for name, data in control(build).items():
                yield f"{folder}/{name}", data
            for target, name in moved("skins/light", f"{folder}/Skins/light"):
                yield target, checkout.read(name)


def texts(version):
    yield "README.txt", windows_text(checkout.text("packaging/README.txt").replace("@VERSION@", version))
    yield "LICENSE.txt", windows_text(checkout.text("LICENSE"))
    yield "NOTICES.txt", windows_text(checkout.text("packaging/NOTICES.txt"))


def contents(version, builds):
    """The bytes by their names, with slashes."""
    places = {name: target for target, name in sources()}
    files = {target: checkout.read(name) for name, target in places.items()}
    files.update(documents.pages({**places, "LICENSE": "LICENSE.txt"}))
    for part in (libraries(builds), headers(builds), programs(builds), texts(version)):
        files.update(part)
    return files


def debug_files(builds):
    for processor, build in builds.items():
        made = build / "src/ole"
        yield f"{processor}/VantikFrameTab.ocx.debug", (made / "debug/VantikFrameTab.ocx").read_bytes()
        # The linker names the list of exports by its whole path.
        link_map = (made / "VantikFrameTab.map").read_text(encoding="utf-8")
        yield f"{processor}/VantikFrameTab.map", link_map.replace(str(checkout.ROOT), "VantikFrameTab").encode("utf-8")
