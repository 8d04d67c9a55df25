#!/usr/bin/env python3
"""Looks, by hand, for text that is lost on its way to the page:

    tools/find_losses.py build/release/bin/quillary DOCUMENTS [SEED]

makes random RTF documents of signs, formatting, lists and tables, compares the
visible text of each page with the plain text of its document, and prints the
smallest documents that lose or gain something.
"""
import collections
import html
import random
import re
import subprocess
import sys

HEAD = (
    r"{\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil Arial;}{\f1\fnil Times New Roman;}"
    r"{\f2\fnil\fcharset2 Symbol;}}{\colortbl;\red255\green0\blue0;\red0\green0\blue255;}"
    "\r\n\\pard\\f0\\fs20 "
)
SIGNS = (
    list("abcxyz019&?;<>\"'~-_#@*|^.,:!()[]/+=%$`")
    + ["word", "The", "end", r"\{", r"\}", "\\\\", " ", "  ", "   ", r"\~", r"\_"]
    + [r"\u1078?", r"\u8364?", r"\u945?", r"\'e9"]
    + [r"\lquote ", r"\rdblquote ", r"\endash ", r"\emdash ", r"\bullet "]
)
WORDS = [r"\b ", r"\b0 ", r"\i ", r"\i0 ", r"\ul ", r"\ulnone ", r"\cf1 ", r"\cf2 ", r"\cf0 ", r"\fs28 "]
WORDS += [r"\fs20 ", r"\f1 ", r"\f0 ", r"\super ", r"\nosupersub ", r"\highlight1 ", r"\highlight0 "]
WORDS += [r"\strike ", r"\strike0 "]
BREAKS = [r"\tab ", r"\line ", r"\par ", r"\par\pard ", r"\par\qc ", r"\par\li360 "]
BULLET = r"{\pntext\f2\'B7\tab}"
BULLETS = r"{\*\pn\pnlvlblt\pnf2\pnindent360{\pntxtb\'B7}}\fi-360\li720 "
TOKEN = re.compile(
    r"\\trowd(?:\\cellx\d+)+\\pard\\intbl |\{\\pntext.*?\}|\{\\\*.*?\}\}|\\'[0-9a-f]{2}|\\u\d+\?|\\[a-z]+-?\d* ?|\\.|.",
    re.S,
)


def part(most):
    return "".join(random.choice(SIGNS if random.random() < 0.75 else WORDS) for _ in range(random.randint(0, most)))


def row():
    cells = random.randint(1, 3)
    edges = "".join(r"\cellx%d" % (1500 * (cell + 1)) for cell in range(cells))
    return r"\trowd" + edges + r"\pard\intbl " + "".join(part(4) + r"\cell " for _ in range(cells)) + r"\row\pard "


def items():
    text = r"\pard " + BULLET + BULLETS + part(5)
    for _ in range(random.randint(1, 3)):
        text += r"\par " + random.choice([""] + WORDS) + BULLET + part(4)
    return text + r"\par\pard "


def paragraph():
    return part(8) + random.choice(BREAKS) + part(4) + random.choice(BREAKS)


def document():
    return "".join(random.choice([row, items, paragraph, paragraph])() for _ in range(random.randint(1, 5)))


def signs(text):
    return re.sub(r"\s|\xa0", "", text)


def texts(program, body):
    rtf = (HEAD + body + "\\par}\r\n").encode("latin1")
    run = lambda command: subprocess.run([program, command], input=rtf, capture_output=True).stdout.decode()
    page = run("to-html")
    return signs(run("to-text")), signs(html.unescape(re.sub(r"<[^>]*>", "", page[page.find("<BODY") :])))


def differs(program, body):
    text, page = texts(program, body)
    return text != page


def smallest(program, body):
    tokens = TOKEN.findall(body)
    place = 0
    while place < len(tokens):
        fewer = tokens[:place] + tokens[place + 1 :]
        if differs(program, "".join(fewer)):
            tokens, place = fewer, 0
        else:
            place += 1
    return "".join(tokens)


def main():
    program, count = sys.argv[1], int(sys.argv[2])
    random.seed(int(sys.argv[3]) if len(sys.argv) > 3 else 1)
    lossy = [body for body in (document() for _ in range(count)) if differs(program, body)]
    found = collections.Counter(smallest(program, body) for body in lossy)
    for body, times in found.most_common():
        print(times, body, *texts(program, body), sep=" | ")
    print(f"{len(lossy)} of {count} documents")
    return 1 if lossy else 0


if __name__ == "__main__":
    sys.exit(main())
