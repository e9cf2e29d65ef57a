"""Compiles a listing in C# against a class as aximp makes it of the type library."""

import pathlib
import subprocess
import tempfile

TYPES = {"short": "short", "long": "int", "BSTR": "string", "VARIANT_BOOL": "bool", "OLE_COLOR": "Color",
         "IFontDisp": "Font", "IPictureDisp": "Image"}

FRAME = """
using System.ComponentModel;
using System.Drawing;
using System.Windows.Forms;
namespace VantikFrameTabProject {{ {enumerations} }}
namespace AxVantikFrameTabProject {{
    public class AxVantikFrameTab : Control, ISupportInitialize {{
        public void BeginInit() {{ }}
        public void EndInit() {{ }}
        {members}
    }}
}}
class ListedForm : Form {{
{listing}
}}
"""


def type_of(name):
    return TYPES.get(name, f"VantikFrameTabProject.{name}")


def argument(each):
    return f"{'ref ' if 'out' in each.flags else ''}{type_of(each.value_type)} {each.name}"


def member(each):
    if each.is_property:
        return f"public new {type_of(each.result)} {each.name} {{ get; set; }}"
    result = type_of(each.result) if each.result else "void"
    return f"public {result} {each.name}({', '.join(map(argument, each.arguments))}) {{ throw null; }}"


def enumeration(each):
    return f"public enum {each.name} {{ {', '.join(f'{name} = {value}' for name, value in each.constants)} }}"


def complaints(listing, types):
    """What the compiler says of errors."""
    text = FRAME.format(enumerations=" ".join(map(enumeration, types.enumerations.values())),
                        members="\n        ".join(map(member, types.members.values())), listing=listing)
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder, "listing.cs")
        source.write_text(text, encoding="utf-8")
        command = ["mcs", "-nowarn:109", "-target:library", "-r:System.Windows.Forms", "-r:System.Drawing", source]
        done = subprocess.run(command, cwd=folder, capture_output=True, text=True)
    return (done.stdout + done.stderr).strip() if done.returncode else ""
