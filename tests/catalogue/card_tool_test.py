"""Runs card_tool on a card with odd names: its JSON is valid and has every file once, its table a line per problem.

usage: card_tool_test.py PROGRAM"""
import json
import os
import subprocess
import sys
import tempfile

names = [b'DCIM/100GOPRO/GH010001.MP4', b'DCIM/100GOPRO/GH030001.MP4', b'DCIM/100GOPRO/a "quoted"\\\n\x01.MP4',
         b'DCIM/100GOPRO/\xff\xfe\xc3\xa9\xed\xa0\x80.MP4', 'DCIM/\u00e9\U0001f3a5.mov'.encode(), b'notes.txt']
with tempfile.TemporaryDirectory() as folder:
    for name in names:
        path = os.path.join(os.fsencode(folder), name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        open(path, "wb").close()
    told = json.loads(subprocess.run([sys.argv[1], folder, "--json"], check=True, capture_output=True).stdout)
    table = subprocess.run([sys.argv[1], folder], check=True, capture_output=True).stdout
missing = subprocess.run([sys.argv[1], folder], check=False, capture_output=True)
files = [file["path"] for clip in told["clips"] for file in clip["files"]]
files += [file["path"] for file in told["bookkeeping"] + told["other"]]
assert sorted(os.fsencode(file) for file in files) == sorted(names), files
assert [card["layout"] for card in told["cards"]] == ["goPro"], told["cards"]
assert table.count(b"! ") == sum(len(clip["problems"]) for clip in told["clips"]) + len(told["problems"]) == 2, table
assert missing.returncode == 1 and subprocess.run([sys.argv[1]], check=False, capture_output=True).returncode == 2
