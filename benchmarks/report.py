#!/usr/bin/env python3
"""Prints what the benchmark program measured, and writes the page beside it: report.py RESULTS.json
Or prints two versions side by side: report.py --beside BEFORE.json ... AFTER.json ..."""

import json
import os
import platform
import re
import statistics
import sys
import textwrap

OURS = "quillonic"
LEAST = "least: "
PAGE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "README.md")


def rows_of(results):
    """The medians, as {work: {who: row}} in the program's order. A row's seconds are None where it was not measured."""
    works = {}
    measured = [row for result in results for row in result["benchmarks"] if row["run_type"] == "iteration"]
    for once in sorted(measured, key=lambda row: row["family_index"]):
        work, who = re.sub("/(iterations|repeats):.*", "", once["run_name"]).split("|")
        row = works.setdefault(work, {}).setdefault(who, {"times": [], "note": "", "kept": 0, "error": ""})
        if once.get("error_occurred"):
            row["error"] = once["error_message"]
            continue
        # The processor's time, which other programs do not lengthen, but where threads share a work.
        clock = "real_time" if "manual_time" in once["run_name"] else "cpu_time"
        row["times"].append(once[clock] * 1e-9 / once["items"])
        row.update(note=once.get("label", ""), kept=once["kept"])
    for row in (row for rows in works.values() for row in rows.values()):
        row["seconds"] = statistics.median(row["times"]) if row["times"] else None
    return works


def three(number):
    """Three digits that count."""
    return "" if number is None else f"{number:,.0f}" if number >= 99.95 else f"{number:#.3g}"


def time(row):
    if row["seconds"] is None:
        return "not measured: " + row["error"]
    factor, unit = next(((f, u) for f, u in ((1, "s"), (1e3, "ms"), (1e6, "µs")) if row["seconds"] * f >= 1), (1e9, "ns"))
    return f"{three(row['seconds'] * factor)} {unit}"


def ratio(row, other):
    return row["seconds"] / other["seconds"] if row and other and row["seconds"] and other["seconds"] else None


def table(header, rows):
    lines = [header, ["---"] + ["---:"] * (len(header) - 1), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)


def nearest(rows):
    """The fastest peer; where there is none, the library itself at another work."""
    peers = [(who.startswith("ours"), row["seconds"], who) for who, row in rows.items()
             if who != OURS and not who.startswith(LEAST) and row["seconds"]]
    return min(peers, default=(0, 0, None))[2]


def print_all(works):
    for work, rows in works.items():
        print("\n" + work)
        for who, row in rows.items():
            print(f"  {who:46} {time(row):>10} {three(ratio(rows.get(OURS), row)):>10}  {row['note']}")


def page(works, growth, context):
    lines, slower = [], []
    for work, rows in works.items():
        ours, peer = rows[OURS], nearest(rows)
        if not ours["kept"] and not ours["error"]:
            continue
        of_peer = ratio(ours, rows.get(peer))
        of_least = ratio(ours, next((row for who, row in rows.items() if who.startswith(LEAST)), None))
        lines.append([work, time(ours), f"{peer}, {time(rows[peer])}" if peer else "", three(of_peer), three(of_least)])
        if of_peer and of_peer > 1.05:
            why = "; ".join(filter(None, [ours["note"] and "quillonic " + ours["note"], rows[peer]["note"]]))
            slower.append(f"- {work}: {three(of_peer)} times {peer}" + (f" ({why})" if why else ""))
    grown = [[what, *(time(row) for row in sizes.values()), three(ratio(sizes["100000"], sizes["100"]))]
             for what, sizes in growth.items()]
    processor = next((line.split(": ")[1].strip() for line in open("/proc/cpuinfo") if line.startswith("model name")), "")
    how = textwrap.fill(
        f"Written on {context['date'][:10]} by `./scripts/bench`, which prints all rows and all peers; this page keeps the "
        f"works that users feel, and the nearest peer of each. {context['num_cpus']} cores ({processor}), Linux "
        f"{platform.release()}, {context['compiler']}, release build. Peers: {os.environ.get('QUILLONIC_PEERS', '')}; "
        f"left out: {context.get('left out') or 'none'}. All rows are from one run, each measured several times in random "
        "order; the medians count, and of these the ratios: below 1 the library is ahead. Times are the processor's, but "
        "for switches that threads share without a pause: there it is the time that passed, divided by all accesses. "
        "Files have no content and are in memory, so that no disk is measured. The last column is the distance to the "
        "least that the work needs, such as a bare system call or a copy.", 118)
    slower = "\n".join(slower) or "Nowhere."
    return (f"# Benchmarks\n\n{how}\n\n{table(['work', 'ours', 'nearest peer', 'ours / its', 'ours / least'], lines)}\n\n"
            f"## Slower than the nearest peer\n\n{slower}\n\n## As the work grows\n\nThe time for each, among as many:\n\n"
            f"{table(['', '100', '1,000', '10,000', '100,000', 'last / first'], grown)}\n")


def main():
    results = []
    for name in [argument for argument in sys.argv[1:] if argument != "--beside"]:
        with open(name, encoding="utf-8") as file:
            results.append(json.load(file))
    if sys.argv[1] == "--beside":
        before, after = rows_of(results[:len(results) // 2]), rows_of(results[len(results) // 2:])
        pairs = [(work, who, before[work][who], row) for work, rows in after.items() for who, row in rows.items()]
        print(table(["work", "before", "after", "after / before"],
                    [[work + ("" if who == OURS else ", " + who), time(old), time(new), three(ratio(new, old))]
                     for work, who, old, new in pairs]))
        return
    works = rows_of(results)
    print_all(works)
    growth = {work.removeprefix("growth: "): works.pop(work) for work in list(works) if work.startswith("growth: ")}
    with open(PAGE, "w", encoding="utf-8") as file:
        file.write(page(works, growth, results[0]["context"]))


if __name__ == "__main__":
    main()
