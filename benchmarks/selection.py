#!/usr/bin/env python3
"""Times programs that choose files of a large tree, as whole processes in turn, and prints a table:
selection.py SELECT_TOOL FOLDER...    makes the tree below each folder, and removes it

Every program must choose the same files in every run. Times are the processor's, the least of the runs, since other
programs only lengthen them. The folders stay in the system's memory: no disk is waited for."""

import os
import resource
import shutil
import subprocess
import sys
import tempfile

FILES, FOLDERS, RUNS = 200_000, 1_000, 7
NOW = 1_795_000_000
DAY = 86_400


def make_tree(root, files):
    """Clips, sidecars and pictures of many sizes, over 400 days, in two levels of folders."""
    for folder in range(FOLDERS):
        path = f"{root}/CARD{folder // 50:02}/{folder % 50:03}_ROLL"
        os.makedirs(path)
        for number in range(files // FOLDERS):
            n = folder * (files // FOLDERS) + number
            name = f"{path}/A{folder:03}C{number:03}_{n * 7919 % 1000003:06}.{('mov', 'xml', 'JPG', 'wav')[n % 4]}"
            with open(name, "wb") as file:
                file.truncate(n * 7919 % 4000)
            date = NOW - n * 104729 % (400 * DAY)
            os.utime(name, (date, date))


def works(root):
    """What to choose: a text, and the programs that choose it."""
    since = NOW - 30 * DAY

    def ours(criterion):
        return ["-0", "-a", root, criterion]

    find = ["find", root, "-mindepth", "1"]
    fd = ["fdfind", "-j1", "-H", "-I", "-0", "-s"]
    return {
        "by name": (ours("name A*7.mov"), find + ["-name", "A*7.mov", "-print0"], fd + ["-g", "A*7.mov", root]),
        "by size": (ours("kind file and size < 1000 B"), find + ["-type", "f", "-size", "-1000c", "-print0"],
                    fd + ["-t", "f", "--size", "-999b", ".", root]),
        "by date": (ours(f"kind file and modified since {utc(since, 'T')}Z"),
                    find + ["-type", "f", "-newermt", f"@{since - 1}", "-print0"],
                    fd + ["-t", "f", "--changed-within", utc(since - 1, " "), ".", root]),
        "all of these": (ours(f"name A*7.mov and kind file and size < 1000 B and modified since {utc(since, 'T')}Z"),
                         find + ["-name", "A*7.mov", "-type", "f", "-size", "-1000c", "-newermt", f"@{since - 1}",
                                 "-print0"],
                         fd + ["-t", "f", "--size", "-999b", "--changed-within", utc(since - 1, " "), "-g", "A*7.mov",
                               root]),
        "everything": (ours("everything"), find + ["-print0"], fd + [".", root]),
    }


def utc(seconds, separator):
    text = subprocess.run(["date", "-u", "-d", f"@{seconds}", f"+%Y-%m-%d{separator}%H:%M:%S"], capture_output=True,
                          check=True, text=True)
    return text.stdout.strip()


def run(command):
    """The chosen paths, the processor's time in seconds and the greatest memory in KiB."""
    with tempfile.TemporaryFile(dir="/dev/shm") as output, tempfile.NamedTemporaryFile("r", dir="/dev/shm") as measured:
        # A process starts with the memory of what started it, so a small program does.
        timed = ["/usr/bin/time", "-q", "-f", "%M", "-o", measured.name, *command]
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        subprocess.run(timed, stdout=output, stderr=subprocess.DEVNULL, check=True, env=os.environ | {"TZ": "UTC", "LC_ALL": "C"})
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        seconds = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        memory = measured.read()
        output.seek(0)
        # One of the programs marks folders with a trailing slash.
        chosen = {path.rstrip(b"/") for path in output.read().split(b"\0")} - {b""}
        return chosen, seconds, int(memory)


def measure(tool, root):
    for work, (ours, *peers) in works(root).items():
        best, most = {}, {}
        for _ in range(RUNS):
            sets = []
            for command in ([tool, *ours], *peers):
                chosen, seconds, memory = run(command)
                who = os.path.basename(command[0])
                best[who] = min(best.get(who, seconds), seconds)
                most[who] = max(most.get(who, memory), memory)
                sets.append(chosen)
            if any(other != sets[0] for other in sets):
                sys.exit(f"{work}: not the same files: {[len(chosen) for chosen in sets]}")
        ours_time, find_time, fd_time = best.values()
        print(f"| {work}, {len(sets[0]):,} chosen | {ours_time * 1e3:.0f} ms | {find_time * 1e3:.0f} ms | {fd_time * 1e3:.0f} ms "
              f"| {ours_time / find_time:.2f} | {ours_time / fd_time:.2f} | {' / '.join(f'{m / 1024:.1f}' for m in most.values())} |",
              flush=True)


def main():
    tool, *folders = sys.argv[1:]
    for folder in folders:
        kind = subprocess.run(["stat", "-f", "-c", "%T", folder], capture_output=True, text=True, check=True).stdout.strip()
        root = tempfile.mkdtemp(prefix="quillonic-selection-", dir=folder)
        try:
            for files in (FILES // 10, FILES):
                tree = f"{root}/{files}"
                make_tree(tree, files)
                print(f"\n{files:,} files in {FOLDERS:,} folders on {kind}\n")
                print("| chosen | select_tool | find | fdfind -j1 | of find | of fdfind | MiB |")
                print("| --- | ---: | ---: | ---: | ---: | ---: | ---: |")
                measure(tool, tree)
        finally:
            shutil.rmtree(root)


if __name__ == "__main__":
    main()
