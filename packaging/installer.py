"""The setup program, made by makensis from setup.nsi and lists of the files."""

import os
import pathlib
import posixpath
import subprocess
import tempfile

import checkout


def folders(files):
    """All folders, each before those inside it."""
    found = set()
    for name in files:
        while name := posixpath.dirname(name):
            found.add(name)
    return sorted(found)


def installed(name):
    return "\\".join(["$INSTDIR", *filter(None, name.split("/"))])


def install_lines(files, folder):
    for inside in ["", *folders(files)]:
        yield f'  SetOutPath "{installed(inside)}"'
        yield from (f'  File "{folder}/{name}"' for name in sorted(files) if posixpath.dirname(name) == inside)


def remove_lines(files):
    yield '  SetOutPath "$TEMP"'  # the folder that a program is in cannot go
    yield from (f'  Delete "{installed(name)}"' for name in sorted(files))
    yield from (f'  RMDir "{installed(name)}"' for name in reversed(folders(files)))


def lists(files, folder):
    """What of the setup program depends on the files."""
    kilobytes = sum(map(len, files.values())) // 1024
    install, remove = "\n".join(install_lines(files, folder)), "\n".join(remove_lines(files))
    return (f"!define KILOBYTES {kilobytes}\n"
            f"!macro InstallFiles\n{install}\n!macroend\n"
            f"!macro RemoveFiles\n{remove}\n!macroend\n")


def lay_out(files, folder, epoch):
    """The files on the disk, each as old as the packages: the setup program hands the times on."""
    for name, data in files.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        os.utime(path, (epoch, epoch))


def write_setup(path, files, version, epoch):
    with tempfile.TemporaryDirectory() as work:
        folder, macros = pathlib.Path(work, "files"), pathlib.Path(work, "lists.nsh")
        lay_out(files, folder, epoch)
        macros.write_text(lists(files, folder), encoding="utf-8")
        defined = {"VERSION": version, "FOLDER": folder, "LISTS": macros, "OUT": path}
        subprocess.run(["makensis", "-V2", "-INPUTCHARSET", "UTF8", *(f"-D{name}={value}" for name, value in defined.items()),
                        checkout.ROOT / "packaging/setup.nsi"], check=True)
