#!/usr/bin/env python3
"""Compares every byte and every pair of bytes of the code pages with Python's
own codecs, and prints where they differ, as ranges.

    tools/check_code_pages.py build/release/bin/quillary-routine

docs/code-pages.md explains each line that it prints.
"""
import json
import subprocess
import sys

CODECS = {page: f"cp{page}" for page in (437, 850, 874, 932, 936, 949, 950, *range(1250, 1259))}
CODECS |= {1361: "johab", 10000: "mac_roman"}
PAIRS = {932, 936, 949, 950, 1361}


def decoded_by_python(page, code):
    try:
        text = code.decode(CODECS[page])
    except UnicodeDecodeError:
        return None
    return text if len(text) == 1 else None


def codes_of(page):
    singles = [bytes([byte]) for byte in range(256)]
    if page not in PAIRS:
        return singles
    return singles + [bytes([lead, trail]) for lead in range(0x81, 0xFF) for trail in range(1, 256)]


def show(character):
    return "undefined" if character is None else f"U+{ord(character):04X}"


def follows(row, last):
    """Whether a difference goes on where the one before it ended."""
    def step(new, old):
        return new == old == None or (new and old and ord(new) in (ord(old), ord(old) + 1))

    same_row = len(row[0]) == len(last[0]) and row[0][:-1] == last[0][:-1]
    return same_row and row[0][-1] == last[0][-1] + 1 and step(row[1], last[1]) and step(row[2], last[2])


def main():
    requests, keys = [], []
    for page in CODECS:
        for code in codes_of(page):
            requests.append(json.dumps({"routine": "DecodeBytes", "args": [page, code.decode("latin-1")], "want": []}))
            keys.append((page, code))
    run = subprocess.run([sys.argv[1]], input="\n".join(requests) + "\n", capture_output=True, text=True, check=True)
    answers = [json.loads(line)["result"] for line in run.stdout.splitlines()]
    assert len(answers) == len(keys)

    runs, compared = [], 0
    for (page, code), ours in zip(keys, answers):
        theirs = decoded_by_python(page, code)
        if len(code) == 2 and len(ours) == 2:
            continue  # no lead byte: two single bytes
        compared += 1
        if ours == theirs:
            continue
        row = (code, ours, theirs)
        if runs and runs[-1][0] == page and follows(row, runs[-1][2]):
            runs[-1][2] = row
            runs[-1][3] += 1
        else:
            runs.append([page, row, row, 1])
    hidden = 0
    for page, first, last, count in runs:
        # A pair that neither side defines is no difference.
        if first[2] is None and len(first[0]) == 2 and first[1] == last[1] == ("\u30fb" if page == 932 else "?"):
            hidden += count
            continue
        if len(first[0]) == 1 and first[1] in "?\u30fb" and first[2] is None:
            hidden += count  # a lead byte alone
            continue
        print(f"{page}: {first[0].hex().upper()}-{last[0].hex().upper()} ({count})"
              f" {show(first[1])}-{show(last[1])}, Python {show(first[2])}-{show(last[2])}")
    print(f"{compared} codes compared, {hidden} of them undefined on both sides")


if __name__ == "__main__":
    main()
