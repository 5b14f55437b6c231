"""What the scripts that generate tables share: rows of text, comments, and writing or checking files."""

import pathlib
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parent.parent


def made_by(script, *sources):
    names = ", ".join(str(source.relative_to(ROOT)) for source in sources)
    changed = "that file" if len(sources) == 1 else "those files"
    return f"Made by scripts/{script} from {names}; change {changed}, not this one."


def rows(source):
    """The lines of a file that are neither empty nor comments."""
    return [line for line in source.read_text().splitlines() if line.strip() and not line.startswith("#")]


def columns(line):
    return [field.strip() for field in line.split(" | ")]


def comment(text, indent=""):
    lines = textwrap.wrap(text, 110 - len(indent) - 4, break_long_words=False, break_on_hyphens=False)
    return "".join(f"{indent}/// {line}\n" for line in lines)


def write_or_check(script, targets):
    """Writes each text to its path; with --check writes nothing and fails if a file is out of date."""
    for target, text in targets.items():
        if sys.argv[1:] == ["--check"]:
            if not target.exists() or target.read_text() != text:
                sys.exit(f"{target} is not what its source gives: run scripts/{script}")
        else:
            target.write_text(text)
            print(f"wrote {target}")
