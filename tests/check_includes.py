"""Fails on an include that points to a room above or beside, on a public header that includes another for nothing, and on
a source that names what neither it nor a header of the library that it includes has included: precompiled headers hide
that from the compiler.

usage: check_includes.py ROOT LEVEL...: each level names its rooms, the lowest level first."""
import functools
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
level = {room: height for height, rooms in enumerate(sys.argv[2:]) for room in rooms.split()}
DECLARATION = re.compile(r"(?:\b(?:class|struct|union|concept|using|namespace|#define)\s+(?:QUILLONIC_\w+\s+)?|"
                         r"\benum class\s+(?:QUILLONIC_\w+\s+)?|[\w>*&]\s)(\w+)\s*(?:[({:;=\[]|$)", re.M)
# What sources use of the headers that are precompiled.
NAMES = {header: re.compile(rf"\bstd::(?:ranges::)?(?:{names})\b") for header, names in {
    "algorithm": "(?:any|all|none)_of|binary_search|clamp|copy(?:_if)?|count(?:_if)?|equal(?:_range)?|fill|find(?:_if)?|"
                 "for_each|includes|(?:lower|upper)_bound|(?:min|max)(?:_element)?|mismatch|partition_point|remove_if|"
                 "replace|reverse|rotate|search|(?:stable_)?sort|transform|unique",
    "array": "array|to_array", "charconv": "from_chars|to_chars", "chrono": "chrono", "filesystem": "filesystem",
    "fstream": "[io]?fstream", "map": "(?:multi)?map", "memory": "(?:unique|shared|weak)_ptr|make_(?:unique|shared)",
    "optional": "optional|nullopt", "ranges": "views", "set": "(?:multi)?set", "span": "span",
    "string": "string|to_string|sto[dil]+", "string_view": "string_view",
    "system_error": "error_(?:code|condition|category)|(?:generic|system)_category|system_error",
    "variant": "variant|visit|get_if|holds_alternative|monostate", "vector": "vector"}.items()}
faults = []


def code_of(file):
    return re.sub(r"//.*", "", file.read_text(encoding="utf-8"))


@functools.cache
def headers_of(file):
    """What a file includes of the standard library, itself or by headers of this one."""
    code = code_of(file)
    found = set(re.findall(r"^#include <(\w+)>", code, re.M))
    for public, private in re.findall(r'^#include (?:<(quillonic/[^>]+)>|"([^"]+)")', code, re.M):
        other = root / "include" / public if public else root / "src" / private
        found |= headers_of(other) if other.exists() else set()
    return found


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
        for header, names in NAMES.items():
            if header not in headers_of(file) and (name := names.search(code)):
                faults.append(f"{file}: {name[0]} without <{header}>")
        body = re.sub(r"^#include.*", "", code, flags=re.M)
        for other in included if base.startswith("include") and "namespace" in body else []:
            header = root / base / other
            names = set(DECLARATION.findall(re.sub(r"^#include.*", "", code_of(header), flags=re.M)))
            if not names & set(re.findall(r"\w+", body)) - {"quillonic", "detail", "std"}:
                faults.append(f"{file}: includes {other} for nothing")
print("\n".join(faults) or "every include points down")
sys.exit(1 if faults else 0)
