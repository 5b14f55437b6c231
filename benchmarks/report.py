#!/usr/bin/env python3
"""Writes benchmarks/README.md and benchmarks/growth.svg from the benchmark's results: report.py RESULTS.json"""

import json
import math
import os
import platform
import subprocess
import sys

OURS = "quillonic"
LIMIT = "limit: "
FOLDER = os.path.dirname(os.path.abspath(__file__))

TOPICS = {
    "words": ("Words of a command line", "ns per word",
              """A value follows every flag. On the lines of `parse` each flag stands once: some of the known flags or all of
them, and then numbered input files; on those with flags repeated the known flags come over and over. Every reader has
to know all known flags and the files of the line, and is told of them before the clock runs. All get the same words,
those that ask for two hyphens one byte more per flag, and are first shown to read the same values and to write the same
words. A reader whose time for a word grows with the flags that it knows or has read is not given lines of 100,000
words."""),
    "timecode": ("Timecodes", "ns each", "1,024 timecodes in turn, half of them in drop frame."),
    "files": ("Files", "ns per item, or per name found",
              """Files without content, in memory where the machine has room for that, so that nothing waits for a disk. The
library finds the roots of all paths in one call, the others path by path."""),
    "names": ("Legal names", "ns per name", "Names in which one character in nineteen is not legal on a tape."),
    "switches": ("Switches", "ns per access",
                 """All threads use one switch without a pause, each on a core of its own while there is one, timed by the clock.
Where there are more threads than cores, keeping the order of arrival costs a change of threads for each access."""),
}


def rows_of(results):
    """The medians, as {topic: {work: {who: row}}}, and the rows that could not be measured.

    A row without a topic has timed its comparison itself."""
    topics, failures = {}, []
    for measured in results["benchmarks"]:
        if "|" not in measured["run_name"]:
            continue
        topic, work, who = measured["run_name"].split("|")
        # The name of a row that times itself has a suffix.
        who, _, timing = who.partition("/iterations")
        if measured.get("error_occurred"):
            failures.append(f"{work}, {who}: {measured['error_message']}")
        elif measured.get("aggregate_name") == "median":
            assert measured["time_unit"] == "ns"
            topics.setdefault(topic, {}).setdefault(work, {})[who] = {
                "time": measured["real_time" if timing else "cpu_time"] / measured["items"],
                "items": measured["items"],
                "allocations": measured.get("allocations"),
                "peak": measured.get("peak"),
                "note": measured.get("label", ""),
                "place": measured["family_index"],
            }
    return topics, failures


def figure(number, digits=3):
    """Three significant digits, however large or small."""
    if number == 0:
        return "0"
    places = max(0, digits - 1 - math.floor(math.log10(abs(number))))
    return f"{number:,.{places}f}"


def table(header, rows, right):
    lines = ["| " + " | ".join(header) + " |",
             "| " + " | ".join("---:" if i in right else "---" for i in range(len(header))) + " |"]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def count(allocations):
    return "" if allocations is None else f"{allocations:,.0f}"


def beside(works):
    """A line per work and peer, and the lines in which the library is slower."""
    lines, behind = [], []
    measured = [(work, rows) for work, rows in works.items() if OURS in rows]
    for work, rows in sorted(measured, key=lambda entry: entry[1][OURS]["place"]):
        ours = rows[OURS]
        others = sorted((who.startswith(LIMIT), -row["time"], who) for who, row in rows.items() if who != OURS)
        for is_limit, _, who in others:
            row = rows[who]
            ratio = ours["time"] / row["time"]
            is_behind = ratio > 1 and not is_limit
            text = f"**{figure(ratio)}**" if is_behind else figure(ratio)
            name = f"*{who}*" if is_limit else who
            lines.append([work, name, figure(ours["time"]), figure(row["time"]), text, count(ours["allocations"]),
                          "" if is_limit else count(row["allocations"]), row["note"]])
            if is_behind:
                behind.append([work, name, figure(ratio), row["note"]])
    return lines, behind


def turns_table(results):
    """The rows that took turns with their comparison."""
    names = {"expandedAttributes<largeClips>": "attributes of clips",
             "expandedAttributes<smallFiles>": "attributes of small files, which may be alias files",
             "walkLinks": "a tree of links walked"}
    lines = []
    for measured in results["benchmarks"]:
        name = measured["run_name"].split("/")[0]
        if name in names and measured.get("aggregate_name") == "median":
            assert measured["time_unit"] == "ms"
            least = measured.get("times_least")
            lines.append([names[name], figure(measured["real_time"] * 1e6 / 10_000), figure(measured["times_bare"]),
                          figure(least) if least else ""])
    return table(["work", "ours, ns per item", "times one system call per item", "times what it cannot do without"],
                 sorted(lines), range(1, 4))


def spread(values):
    return max(values) / min(values)


def growth_table(series):
    sizes = sorted({int(size) for rows in series.values() for size in rows})
    lines = []
    for name, rows in series.items():
        for kind, unit in (("time", "ns"), ("peak", "bytes")):
            values = [rows[str(size)]["time"] if kind == "time" else rows[str(size)]["peak"] / size for size in sizes]
            if kind == "peak" and rows[str(sizes[-1])]["peak"] <= 2 * rows[str(sizes[0])]["peak"]:
                notes = ["the same for all", "", ""]
            else:
                notes = [figure(spread(values)), figure(values[-1] / values[0]), ""] if min(values) else ["", "", ""]
            bare = series.get(rows[str(sizes[0])]["note"])
            if kind == "time" and bare:
                notes[2] = figure(spread(values) / spread([bare[str(size)]["time"] for size in sizes]))
            lines.append([name, unit] + [figure(value) for value in values] + notes)
    header = ["of", "in"] + [f"{size:,}" for size in sizes] + ["greatest / least", "last / first", "times the bare work's"]
    return table(header, lines, range(2, len(header)))


COLOURS = ["#1b6ca8", "#c8553d", "#3b8b4a", "#7a4fa3", "#b8860b", "#777777", "#111111", "#d17fb0"]


def svg_of(series):
    width, height, left, top, panel_width, panel_height = 960, 440, 70, 50, 370, 260
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" font-family="sans-serif" '
           'font-size="12">', f'<rect width="{width}" height="{height}" fill="white"/>']
    sizes = sorted({int(size) for rows in series.values() for size in rows})

    def panel(offset, title, values_of):
        curves = {name: [values_of(rows[str(size)], size) for size in sizes] for name, rows in series.items()}
        positive = [value for values in curves.values() for value in values if value > 0]
        low, high = math.floor(math.log10(min(positive))), math.ceil(math.log10(max(positive)))
        x0, y0 = left + offset, top

        def x(size):
            return x0 + panel_width * math.log10(size / sizes[0]) / math.log10(sizes[-1] / sizes[0])

        def y(value):
            return y0 + panel_height * (1 - (math.log10(value) - low) / (high - low))

        out.append(f'<text x="{x0}" y="{y0 - 18}" font-size="15" font-weight="bold">{title}</text>')
        for power in range(low, high + 1):
            line = y(10.0 ** power)
            label = f"{10 ** power:,}" if power >= 0 else f"{10.0 ** power:g}"
            out.append(f'<line x1="{x0}" x2="{x0 + panel_width}" y1="{line:.1f}" y2="{line:.1f}" stroke="#dddddd"/>')
            out.append(f'<text x="{x0 - 6}" y="{line + 4:.1f}" text-anchor="end">{label}</text>')
        for size in sizes:
            out.append(f'<text x="{x(size):.1f}" y="{y0 + panel_height + 18}" text-anchor="middle">{size:,}</text>')
        for colour, values in zip(COLOURS, curves.values()):
            points = " ".join(f"{x(size):.1f},{y(value):.1f}" for size, value in zip(sizes, values) if value > 0)
            out.append(f'<polyline points="{points}" fill="none" stroke="{colour}" stroke-width="2"/>')
            out.extend(f'<circle cx="{point.split(",")[0]}" cy="{point.split(",")[1]}" r="3" fill="{colour}"/>'
                       for point in points.split())

    panel(0, "Nanoseconds for each", lambda row, size: row["time"])
    panel(480, "Bytes at the peak for each", lambda row, size: row["peak"] / size)
    for i, (colour, name) in enumerate(zip(COLOURS, series)):
        x, y = left + 290 * (i % 3), top + panel_height + 50 + 24 * (i // 3)
        out.append(f'<rect x="{x}" y="{y - 9}" width="12" height="12" fill="{colour}"/>')
        out.append(f'<text x="{x + 18}" y="{y + 2}">{name}</text>')
    out.append("</svg>")
    return "\n".join(out) + "\n"


def machine(context):
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2 ** 30
    processor = next((line.split(":")[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")),
                     platform.machine())
    return (f"{context['date'][:10]}, {context['num_cpus']} cores ({processor}), {memory:.0f} GiB of memory, "
            f"Linux {platform.release()}, {context['compiler']}, {context['build']} build")


def packages():
    names = os.environ.get("QUILLONIC_PEER_PACKAGES", "").split()
    if not names:
        return ""
    found = subprocess.run(["dpkg-query", "-W", "-f", "${db:Status-Status} ${Package} ${Version}\n", *names],
                           capture_output=True, text=True, check=False).stdout.splitlines()
    installed = [line.split(" ", 1)[1] for line in found if line.startswith("installed ")]
    return ", ".join(installed)


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        results = json.load(file)
    context = results["context"]
    topics, failures = rows_of(results)
    growth = dict(sorted(topics.pop("growth", {}).items(), key=lambda entry: entry[1]["100"]["place"]))

    behind, sections = [], []
    for topic, (title, unit, text) in TOPICS.items():
        if topic not in topics:
            continue
        lines, late = beside(topics[topic])
        behind += late
        header = ["work", "beside", f"ours, {unit}", "theirs", "ours / theirs", "allocations, ours", "theirs", "note"]
        sections.append(f"## {title}\n\n{text}\n\n" + table(header, lines, range(2, 7)))

    parts = [f"""# Benchmarks

Written by `./scripts/bench`; see there for how. {machine(context)}.

Every row is measured in the same run as those beside it, each several times in random order, and the medians count:
what may be compared is the ratio. Below 1 the library is ahead; rows in which it is behind are set in bold. Rows in
italics are the least that the machine needs for the work, and their ratio is the distance to that. Allocations are
those of one turn of the work, C libraries included. What is timed is the processor's time, and the clock's where threads
or loops take turns: for switches that is the time that passed, divided by the accesses of all threads."""]
    parts.append(f"Left out: {context['left out']}." if context.get("left out") else "No peer was left out.")
    if failures:
        parts.append("Not measured, since they failed:\n\n" + "\n".join(f"- {failure}" for failure in failures))
    if packages():
        parts.append(f"Peers: {packages()}.")
    doing_less = [row for row in behind if row[3].startswith("less")]
    for title, rows in (("Behind on the same work", [row for row in behind if row not in doing_less]),
                        ("Behind a peer that does less", doing_less)):
        parts.append(f"## {title}\n\n" + (table(["work", "beside", "ours / theirs", "note"], rows, [2])
                                           if rows else "Nowhere."))
    parts += sections
    parts.append("## Attributes and links\n\n10,000 items each; the loops take turns. A small file has to be opened to see "
                 "whether it is an alias file.\n\n" + turns_table(results))
    if growth:
        parts.append("## Cost as work grows\n\nTime and peak memory, what was handed in not counted, for each word, path "
                     "or item of a hundred to a million. A bare copy of the words and a bare system call show what memory and "
                     "the system's caches do to any program, and the last column is the greatest / least of a row in terms of theirs; a "
                     "cost that falls is one that more items share.\n\n"
                     "![growth](growth.svg)\n\n" + growth_table(growth))
        with open(os.path.join(FOLDER, "growth.svg"), "w", encoding="utf-8") as file:
            file.write(svg_of(growth))
    with open(os.path.join(FOLDER, "README.md"), "w", encoding="utf-8") as file:
        file.write("\n\n".join(parts) + "\n")

    for failure in failures:
        print(f"error: {failure}", file=sys.stderr)
    print(f"{len(behind)} rows are behind; see benchmarks/README.md")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
