"""Fails on an include that points to a room above or beside, and on a public header that includes another for nothing.

usage: check_includes.py ROOT LEVEL...: each level names its rooms, the lowest level first."""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
level = {room: height for height, rooms in enumerate(sys.argv[2:]) for room in rooms.split()}
DECLARATION = re.compile(r"(?:\b(?:class|struct|union|concept|using|namespace|#define)\s+(?:QUILLONIC_\w+\s+)?|"
                         r"\benum class\s+(?:QUILLONIC_\w+\s+)?|[\w>*&]\s)(\w+)\s*(?:[({:;=\[]|$)", re.M)
faults = []


def code_of(file):
    return re.sub(r"//.*", "", file.read_text(encoding="utf-8"))


def room_of(path):
    return path.split("/")[0].removesuffix(".hpp")


for base in ("include/quillonic", "src"):
    for file in sorted((root / base).rglob("*.[hci]pp")):
        own, code = room_of(file.relative_to(root / base).as_posix()), code_of(file)
        included = re.findall(r'^#include (?:<quillonic/|")([^>"]+)', code, re.M)
        for other in included:
            room = room_of(other)
            if room != own and own in level and level.get(room, -1) >= level[own]:
                faults.append(f"{file}: includes {other} of a room that is not below")
        body = re.sub(r"^#include.*", "", code, flags=re.M)
        for other in included if base.startswith("include") and "namespace" in body else []:
            header = root / base / other
            names = set(DECLARATION.findall(re.sub(r"^#include.*", "", code_of(header), flags=re.M)))
            if not names & set(re.findall(r"\w+", body)) - {"quillonic", "detail", "std"}:
                faults.append(f"{file}: includes {other} for nothing")
print("\n".join(faults) or "every include points down")
sys.exit(1 if faults else 0)
